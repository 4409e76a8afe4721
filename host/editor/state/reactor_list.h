// The reactors that are attached to one source of events.
#pragma once

#include <algorithm>
#include <vector>

namespace host {

/// Reactors in the order in which they were attached; each stays its owner's.
template <typename Reactor>
class ReactorList {
  public:
    /// Does nothing when the reactor is attached already.
    void attach(Reactor* reactor) {
        if (contains(reactor)) return;
        // The first word of a polymorphic object points to its virtual table.
        m_attached.push_back({reactor, *reinterpret_cast<const void* const*>(reactor)});
    }
    void detach(const Reactor* reactor) {
        detachIf([&](const Attached& each) { return each.reactor == reactor; });
    }
    void detachAll() { m_attached.clear(); }
    /// Detaches the reactors whose virtual table `isInLibrary` takes for its own; gives their
    /// number. A reactor itself may be gone already.
    template <typename Predicate>
    int detachOf(Predicate isInLibrary) {
        return detachIf([&](const Attached& each) { return isInLibrary(each.table); });
    }
    int count() const { return static_cast<int>(m_attached.size()); }
    bool contains(const Reactor* reactor) const {
        return std::any_of(m_attached.begin(), m_attached.end(),
                           [&](const Attached& each) { return each.reactor == reactor; });
    }
    /// Calls each reactor that is still attached when its turn comes. Those that are attached
    /// meanwhile wait for the next time.
    template <typename Call>
    void forEach(Call call) const {
        const std::vector<Attached> turn = m_attached;
        for (const Attached& each : turn) {
            if (contains(each.reactor)) call(*each.reactor);
        }
    }

  private:
    struct Attached {
        Reactor* reactor;
        const void* table;  ///< virtual table when it was attached
    };

    template <typename Predicate>
    int detachIf(Predicate goes) {
        const auto left = std::remove_if(m_attached.begin(), m_attached.end(), goes);
        const int count = static_cast<int>(m_attached.end() - left);
        m_attached.erase(left, m_attached.end());
        return count;
    }

    std::vector<Attached> m_attached;
};

}  // namespace host
