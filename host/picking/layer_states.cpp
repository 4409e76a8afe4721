// Reads the states of layers from their records.
#include "host/picking/layer_states.h"

#include "host/store/store.h"
#include "host/tags/tag_view.h"

namespace host {

const LayerStates::State& LayerStates::stateOf(std::string_view layer) {
    if (m_last != nullptr && layer == m_lastLayer) return *m_last;
    m_lastLayer = layer;
    const auto [place, isNew] = m_states.try_emplace(m_lastLayer);
    m_last = &place->second;
    if (!isNew) return place->second;
    const ObjectBody* record = m_store.symbol("LAYER", m_store.decode(layer));
    if (record != nullptr) {
        const OwnTags tags(record->tags());
        place->second.off = tags.integer(62, 7) < 0;
        place->second.frozen = (tags.integer(70, 0) & 1) != 0;
    }
    return place->second;
}

}  // namespace host
