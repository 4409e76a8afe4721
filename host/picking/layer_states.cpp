// Reads the states of layers from their records.
#include "host/picking/layer_states.h"

#include "host/store/store.h"

namespace host {

const LayerState& LayerStates::stateOf(std::string_view layer) {
    const auto [place, isNew] = m_states.try_emplace(std::string(layer));
    if (!isNew) return place->second;
    const ObjectBody* record = m_store.symbol("LAYER", m_store.decode(layer));
    if (record != nullptr) place->second = layerState(*record);
    return place->second;
}

}  // namespace host
