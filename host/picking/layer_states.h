// Which layers are drawn.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "host/store/symbol_records.h"

namespace host {

class Store;

/// Looks layers up once each; short-lived, since layers change.
class LayerStates {
  public:
    explicit LayerStates(const Store& store) : m_store(store) {}
    /// True when a layer (its name in the drawing's encoding) is on and thawed, or unknown.
    bool drawn(std::string_view layer) { return !stateOf(layer).off && !stateOf(layer).frozen; }
    bool frozen(std::string_view layer) { return stateOf(layer).frozen; }

  private:
    const LayerState& stateOf(std::string_view layer);

    const Store& m_store;
    std::unordered_map<std::string, LayerState> m_states;
    std::string m_lastLayer;  ///< looked up last; neighbours often share theirs
    const LayerState* m_last = nullptr;
};

}  // namespace host
