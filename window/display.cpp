// Answers requests of the page.
#include "window/display.h"

#include <algorithm>
#include <array>

#include "host/application/gestures.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/journal.h"
#include "host/text/text_codec.h"

namespace window {
namespace {

std::string handleOf(AcDbObjectId id) {
    const host::ObjectBody* body = host::Store::resolve(id);
    return body != nullptr ? host::formatHandle(body->handle) : "";
}

json::Value handlesOf(const std::vector<AcDbObjectId>& entities) {
    std::vector<std::string> handles;
    for (const AcDbObjectId id : entities)
        handles.push_back(handleOf(id));
    return json::Value::list(handles);
}

const char* nameOf(host::Wanted wanted) {
    switch (wanted) {
        case host::Wanted::Point:
            return "point";
        case host::Wanted::Selection:
            return "selection";
        case host::Wanted::Entity:
            return "entity";
        default:
            return "words";
    }
}

}  // namespace

Display::Display(host::Session& session, Desk& desk, Reader reader, std::function<bool()> isOver)
    : m_session(session),
      m_reader(std::move(reader)),
      m_conversation(
          session, desk, m_watch, [this] { return news(); }, std::move(isOver)) {}

const host::Store* Display::store() const {
    const AcDbDatabase* drawing = m_session.database();
    return drawing != nullptr ? &drawing->store() : nullptr;
}

bool Display::nothingToLose() const {
    if (!m_conversation.waits() || !m_conversation.atCommand()) return false;
    for (const host::HostDocument* document : m_session.documents.all()) {
        if (document->changed()) return false;
    }
    return true;
}

bool Display::showsCurrentSpace() const {
    return m_sheet && store() != nullptr && m_sheet->space() == store()->currentSpace();
}

void Display::decline(const Reply& reply, const std::string& why) {
    reply->set_value(json::Object{{"error", why}}.text());
}

void Display::conclude() {
    m_over = true;
    m_conversation.conclude();
}

json::Object Display::state() {
    const bool atCommand = m_conversation.atCommand();
    const char* const mood = m_over ? "ended" : atCommand ? "ready" : "asking";
    json::Object state = {{"state", mood},
                          {"prompt", host::toUtf8(m_conversation.prompt())},
                          {"wants", atCommand ? "command" : nameOf(host::question().wanted)},
                          {"line", m_conversation.takesLine()}};
    if (const auto& base = host::question().base)
        state.add("base", json::Value::list(std::array{base->x, base->y}));
    if (const auto* chosen = host::question().chosen) state.add("chosen", handlesOf(*chosen));
    const std::wstring& transcript = m_conversation.transcript();
    const std::size_t from = std::max(m_told.transcript, m_conversation.forgotten());
    state.add("transcript", host::toUtf8(transcript.substr(from - m_conversation.forgotten())));
    m_told.transcript = m_conversation.forgotten() + transcript.size();
    const std::string& script = m_conversation.record().text();
    state.add("script", script.substr(m_told.script));
    m_told.script = script.size();
    const host::HostDocument* document = m_session.documents.current();
    state.add("drawing", document != nullptr ? json::Value(host::toUtf8(document->fileName()))
                                             : json::Value());
    state.add("named", document != nullptr && !document->path().empty());
    state.add("changed", document != nullptr && document->changed());
    state.add("grouping", m_watch.groupingOn());
    if (store() == nullptr) return state;
    std::vector<json::Object> spaces;
    for (const auto& [space, name] : m_reader.spaces(*store())) {
        spaces.push_back(
            {{"space", space},
             {"name", name},
             {"current", space == store()->currentSpace()},
             {"model", space == store()->modelSpace()},
             {"reachable", space == store()->modelSpace() || space == store()->paperSpace()}});
    }
    return state.add("spaces", json::Value::list(spaces));
}

void Display::addSelection(json::Object& news) {
    const std::vector<AcDbObjectId>& picked = host::pickfirst();
    if (picked == m_told.selected) return;
    m_told.selected = picked;
    news.add("selected", handlesOf(picked));
}

void Display::addGroups(json::Object& news) {
    // Between commands only: inside one the module may have objects open.
    if (m_told.groups || !m_conversation.atCommand() || store() == nullptr) return;
    m_groups.set(m_reader.inspect(*m_session.database()));
    news.add(m_groups.list());
    m_told.groups = true;
}

json::Object Display::wholeSheet() {
    m_session.database()->store().journal().takeChanged();
    return {{"sheet", m_sheet->all()}};
}

/// What of the drawing is not as the page knows it.
json::Object Display::sheetNews() {
    const host::Store* now = store();
    if (now == nullptr) {
        m_sheet.reset();
        m_told.drawing = 0;
        return {};
    }
    host::Journal& journal = m_session.database()->store().journal();
    const host::Index current = now->currentSpace();
    const bool isOther = now->serial() != m_told.drawing;
    if (isOther) journal.watch();
    if (isOther || now->revision != m_told.revision) m_told.groups = false;
    if (isOther || current != m_current || !m_sheet) m_sheet.emplace(*now, current);
    const bool knowsSheet = !isOther && current == m_current && m_told.space == m_sheet->space();
    const bool isAsTold = knowsSheet && now->revision == m_told.revision;
    m_told.drawing = now->serial();
    m_told.revision = now->revision;
    m_told.space = m_sheet->space();
    m_current = current;
    if (isAsTold) return {};
    std::optional<json::Object> changes;
    if (knowsSheet) changes = m_sheet->changes(journal.takeChanged());
    return changes ? *changes : wholeSheet();
}

std::string Display::news() {
    const json::Object sheet = sheetNews();
    json::Object news = state();
    addSelection(news);
    addGroups(news);
    return news.add(sheet).text();
}

/// For a page that knows nothing yet.
std::string Display::everything() {
    m_told = {};
    m_told.selected = {AcDbObjectId()};  // no set of picks is like that, so it is told
    m_sheet.reset();
    const json::Object sheet = sheetNews();
    json::Object all = state();
    addSelection(all);
    addGroups(all);
    std::vector<std::string> names;
    for (const std::wstring& name : host::typableNames())
        names.push_back(host::toUtf8(name));
    return all.add("commands", json::Value::list(names)).add(sheet).text();
}

void Display::showSpace(const json::Request& request, const Reply& reply) {
    const double wanted = request.number("space");
    for (const auto& [space, name] : m_reader.spaces(*store())) {
        if (space != wanted) continue;
        m_sheet.emplace(*store(), space);
        m_told.space = space;
        const json::Object sheet = wholeSheet();
        return reply->set_value(state().add(sheet).text());
    }
    decline(reply, "the drawing has no such space");
}

void Display::answer(const json::Request& request, const Reply& reply) {
    try {
        act(request, reply);
    } catch (const json::Lacking& what) {
        decline(reply, std::string("the request lacks ") + what.what());
    }
}

void Display::act(const json::Request& request, const Reply& reply) {
    const std::string what = request.text("do");
    if (what == "open") return reply->set_value(everything());
    if (what == "look") return reply->set_value(look(request).text());
    if (what == "cancel") return m_conversation.cancel(reply);
    if (what == "type") {
        std::wstring line = host::fromUtf8(request.text("line"));
        for (wchar_t& c : line)
            if (c < L' ') c = L' ';
        return m_conversation.type({std::move(line)}, reply);
    }
    if (store() == nullptr) return decline(reply, "no drawing is open");
    if (what == "space") return showSpace(request, reply);
    if (what == "click") return click(request, reply);
    if (what == "box") return box(request, reply);
    if (what == "group") return pickGroup(request, reply);
    decline(reply, "the request is none that is known: " + what);
}

}  // namespace window
