// Reads the states of layers from their records.
#include "host/editor/layer_states.h"

#include "host/database/store.h"
#include "host/editor/entity_groups.h"

namespace host {

const LayerStates::State& LayerStates::stateOf(std::string_view layer) {
    const auto [place, isNew] = m_states.try_emplace(std::string(layer));
    if (!isNew) return place->second;
    const ObjectBody* record = m_store.symbol("LAYER", m_store.decode(layer));
    if (record != nullptr) {
        const EntityGroups groups(record->text());
        place->second.off = groups.integer(62, 7) < 0;
        place->second.frozen = (groups.integer(70, 0) & 1) != 0;
    }
    return place->second;
}

}  // namespace host
