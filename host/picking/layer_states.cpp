// Reads the states of layers from their records.
#include "host/picking/layer_states.h"

#include "host/store/store.h"

namespace host {

const LayerState& LayerStates::stateOf(std::string_view layer) {
    if (m_last != nullptr && layer == m_lastLayer) return *m_last;
    m_lastLayer = layer;
    const auto [place, isNew] = m_states.try_emplace(m_lastLayer);
    m_last = &place->second;
    if (!isNew) return place->second;
    const ObjectBody* record = m_store.symbol("LAYER", m_store.decode(layer));
    if (record != nullptr) place->second = layerState(*record);
    return place->second;
}

}  // namespace host
