// What commands changed in a drawing, so that whole commands can be undone and redone.
#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/store/object_body.h"

namespace host {

class Store;

/// Records, while a command runs, how each object was that is changed for the first time since the
/// command began. Outside commands nothing is recorded.
///
/// Only changed texts are kept; the oldest commands are forgotten when they come to more than
/// kMostBytes. An object that a command made counts as erased after the command was undone: it is
/// in no list, is not saved and is not found by its name or handle, but its handle is never given
/// again and its id stays valid for the redo.
class Journal {
  public:
    explicit Journal(Store& store) : m_store(store) {}

    /// A command begins; one that is still open ends before.
    void begin(std::wstring name);
    /// It ends. When it changed something it can be undone, and nothing can be redone any more.
    void end();

    /// Undoes the command before, or the last `count`. What the open command changed until now (its
    /// reactors may have) is taken back first. Gives the names, latest first; fewer when there are
    /// fewer.
    std::vector<std::wstring> undo(int count);
    /// Redoes what the last undo undid that was not redone yet. Gives the names, earliest first.
    std::vector<std::wstring> redo();

    /// From here on the slots of all that changes are noted, in commands and outside.
    void watch() { m_watching = true; }
    /// Slots of what changed since it was last asked, each once; lowest first.
    std::vector<Index> takeChanged();

    // --- called by the store, each before the change -------------------------------------------
    void made(const ObjectBody& body);
    void flagsChange(const ObjectBody& body) { note(body, false); }
    void textChanges(const ObjectBody& body) { note(body, true); }
    void headerChanges(const std::string& header);

  private:
    static constexpr std::size_t kMostBytes = 256u * 1024 * 1024;

    /// What of a body can change.
    struct State {
        bool linked = false, erased = true, erasedWithOwner = false, releasedLater = false;
        bool undone = true;
        bool hasText = false;
        Index sequenceEnd = kNoIndex;
        std::string text;
    };
    struct Change {
        Index index;
        State state;
    };
    /// One command. Holds the other states: those before it, or once undone those behind it.
    struct Step {
        std::wstring name;
        std::vector<Change> changes;  ///< in the order in which the objects changed first
        bool hasHeader = false;
        std::string header;
        bool beginsUndo = false;  ///< undone as the first of several

        std::size_t bytes() const;
    };

    void note(const ObjectBody& body, bool withText);
    bool changesAnything(const Step& step) const;
    State stateOf(const ObjectBody& body, bool withText) const;
    void noteChanged(Index index) {
        if (m_watching) m_changed.push_back(index);
    }
    void exchange(Step& step, bool backwards);
    void exchange(ObjectBody& body, State& state);
    void dropOldest();

    Store& m_store;
    bool m_watching = false;
    std::vector<Index> m_changed;
    bool m_recording = false;
    Step m_open;
    Index m_newFrom = kNoIndex;  ///< slots from here on are the open command's own
    std::unordered_map<Index, std::size_t> m_places;  ///< of older slots in its changes
    std::deque<Step> m_done;
    std::vector<Step> m_undone;
    std::size_t m_bytes = 0;  ///< of m_done
};

}  // namespace host
