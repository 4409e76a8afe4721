// Recording the states of objects before commands, and exchanging them.
#include "host/store/journal.h"

#include <algorithm>
#include <utility>

#include "host/store/body_text.h"
#include "host/store/store.h"

namespace host {

std::size_t Journal::Step::bytes() const {
    std::size_t sum = header.size() + changes.size() * sizeof(Change);
    for (const Change& change : changes)
        sum += change.state.text.size();
    return sum;
}

void Journal::begin(std::wstring name) {
    end();
    m_open = {};
    m_open.name = std::move(name);
    m_places.clear();
    m_newFrom = m_store.count() + 1;
    m_recording = true;
}

void Journal::end() {
    if (!m_recording) return;
    m_recording = false;
    m_places.clear();
    Step step = std::exchange(m_open, {});
    if (!changesAnything(step)) return;
    m_undone.clear();
    m_bytes += step.bytes();
    m_done.push_back(std::move(step));
    dropOldest();
}

/// False when everything is again as it was; what was made and erased meanwhile does not count.
bool Journal::changesAnything(const Step& step) const {
    if (step.hasHeader && step.header != m_store.section(SectionKind::Header).text) return true;
    return std::any_of(step.changes.begin(), step.changes.end(), [&](const Change& change) {
        const ObjectBody& body = m_store.at(change.index);
        const State& was = change.state;
        return was.erased != body.erased || was.sequenceEnd != body.sequenceEnd ||
               was.releasedLater != body.releasedLater || (was.hasText && was.text != body.tags());
    });
}

void Journal::dropOldest() {
    while (m_bytes > kMostBytes && m_done.size() > 1) {
        m_bytes -= m_done.front().bytes();
        m_done.pop_front();
    }
}

std::vector<Index> Journal::takeChanged() {
    std::sort(m_changed.begin(), m_changed.end());
    m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
    return std::exchange(m_changed, {});
}

void Journal::made(const ObjectBody& body) {
    noteChanged(body.self);
    if (!m_recording) return;
    m_open.changes.push_back({body.self, {}});
}

void Journal::note(const ObjectBody& body, bool withText) {
    noteChanged(body.self);
    // What the command made itself is gone with it, whatever became of it meanwhile.
    if (!m_recording || body.self >= m_newFrom) return;
    const auto [place, isNew] = m_places.emplace(body.self, m_open.changes.size());
    if (isNew) {
        m_open.changes.push_back({body.self, stateOf(body, withText)});
        return;
    }
    State& state = m_open.changes[place->second].state;
    if (!withText || state.hasText || state.undone) return;
    state.hasText = true;
    state.text = body.tags();
}

void Journal::headerChanges(const std::string& header) {
    if (!m_recording || m_open.hasHeader) return;
    m_open.hasHeader = true;
    m_open.header = header;
}

Journal::State Journal::stateOf(const ObjectBody& body, bool withText) const {
    State state;
    const Index list = m_store.listParent(body);
    state.linked = list != kNoIndex && m_store.isMember(body, m_store.at(list));
    state.erased = body.erased;
    state.erasedWithOwner = body.erasedWithOwner;
    state.releasedLater = body.releasedLater;
    state.undone = body.undone;
    state.sequenceEnd = body.sequenceEnd;
    state.hasText = withText;
    if (withText) state.text = body.tags();
    return state;
}

void Journal::exchange(ObjectBody& body, State& state) {
    noteChanged(body.self);
    State now = stateOf(body, state.hasText);
    if (now.linked && !state.linked) m_store.unlink(body);
    if (!now.linked && state.linked) m_store.link(body);
    body.erased = state.erased;
    body.erasedWithOwner = state.erasedWithOwner;
    body.releasedLater = state.releasedLater;
    body.undone = state.undone;
    body.sequenceEnd = state.sequenceEnd;
    if (state.hasText) placeText(body, state.text);
    m_store.recordsChanged(body.kind);
    state = std::move(now);
}

void Journal::exchange(Step& step, bool backwards) {
    if (step.hasHeader) m_store.section(SectionKind::Header).text.swap(step.header);
    if (backwards) std::reverse(step.changes.begin(), step.changes.end());
    for (Change& change : step.changes)
        exchange(m_store.at(change.index), change.state);
    if (backwards) std::reverse(step.changes.begin(), step.changes.end());
    ++m_store.revision;
}

std::vector<std::wstring> Journal::undo(int count) {
    exchange(m_open, true);
    m_open.changes.clear();
    m_open.hasHeader = false;
    m_places.clear();
    m_newFrom = m_store.count() + 1;
    std::vector<std::wstring> names;
    for (; count > 0 && !m_done.empty(); --count) {
        Step step = std::move(m_done.back());
        m_done.pop_back();
        m_bytes -= step.bytes();
        exchange(step, true);
        step.beginsUndo = names.empty();
        names.push_back(step.name);
        m_undone.push_back(std::move(step));
    }
    return names;
}

std::vector<std::wstring> Journal::redo() {
    std::vector<std::wstring> names;
    bool isLast = false;
    while (!isLast && !m_undone.empty()) {
        Step step = std::move(m_undone.back());
        m_undone.pop_back();
        exchange(step, false);
        isLast = step.beginsUndo;
        names.push_back(step.name);
        m_bytes += step.bytes();
        m_done.push_back(std::move(step));
    }
    return names;
}

}  // namespace host
