// Answers requests of the page.
#include "window/display.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/application/gestures.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/journal.h"
#include "host/text/text_codec.h"

namespace window {
namespace {

using Json = nlohmann::json;

std::string dump(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The object with further members, which stand as text.
std::string joined(const Json& object, const std::string& members) {
    std::string text = dump(object);
    if (members.empty()) return text;
    text.back() = ',';
    return text + members + "}";
}

std::string handleOf(AcDbObjectId id) {
    const host::ObjectBody* body = host::Store::resolve(id);
    return body != nullptr ? host::formatHandle(body->handle) : "";
}

Json handlesOf(const std::vector<AcDbObjectId>& entities) {
    Json handles = Json::array();
    for (const AcDbObjectId id : entities)
        handles.push_back(handleOf(id));
    return handles;
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
    reply->set_value(dump({{"error", why}}));
}

void Display::conclude() {
    m_over = true;
    m_conversation.conclude();
}

Json Display::state() {
    Json state;
    state["state"] = m_over ? "ended" : m_conversation.atCommand() ? "ready" : "asking";
    state["prompt"] = host::toUtf8(m_conversation.prompt());
    state["wants"] = m_conversation.atCommand() ? "command" : nameOf(host::question().wanted);
    state["line"] = m_conversation.takesLine();
    if (const auto& base = host::question().base) state["base"] = {base->x, base->y};
    if (const auto* chosen = host::question().chosen) state["chosen"] = handlesOf(*chosen);
    const std::wstring& transcript = m_conversation.transcript();
    const std::size_t from = std::max(m_told.transcript, m_conversation.forgotten());
    state["transcript"] = host::toUtf8(transcript.substr(from - m_conversation.forgotten()));
    m_told.transcript = m_conversation.forgotten() + transcript.size();
    const std::string& script = m_conversation.record().text();
    state["script"] = script.substr(m_told.script);
    m_told.script = script.size();
    const host::HostDocument* document = m_session.documents.current();
    state["drawing"] = document != nullptr ? Json(host::toUtf8(document->fileName())) : Json();
    state["named"] = document != nullptr && !document->path().empty();
    state["changed"] = document != nullptr && document->changed();
    state["grouping"] = m_watch.groupingOn();
    if (store() == nullptr) return state;
    Json spaces = Json::array();
    for (const auto& [space, name] : m_reader.spaces(*store())) {
        spaces.push_back(
            {{"space", space},
             {"name", name},
             {"current", space == store()->currentSpace()},
             {"model", space == store()->modelSpace()},
             {"reachable", space == store()->modelSpace() || space == store()->paperSpace()}});
    }
    state["spaces"] = std::move(spaces);
    return state;
}

void Display::addSelection(Json& news) {
    const std::vector<AcDbObjectId>& picked = host::pickfirst();
    if (picked == m_told.selected) return;
    m_told.selected = picked;
    news["selected"] = handlesOf(picked);
}

void Display::addGroups(Json& news) {
    // Between commands only: inside one the module may have objects open.
    if (m_told.groups || !m_conversation.atCommand() || store() == nullptr) return;
    m_groups.set(m_reader.inspect(*m_session.database()));
    news.update(m_groups.list());
    m_told.groups = true;
}

std::string Display::wholeSheet() {
    m_session.database()->store().journal().takeChanged();
    return "\"sheet\":{\"space\":" + std::to_string(m_sheet->space()) + "," + m_sheet->all() + "}";
}

/// What of the drawing is not as the page knows it, as JSON members.
std::string Display::sheetNews() {
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
    std::optional<std::string> changes;
    if (knowsSheet) changes = m_sheet->changes(journal.takeChanged());
    return changes ? *changes : wholeSheet();
}

std::string Display::news() {
    const std::string sheet = sheetNews();
    Json news = state();
    addSelection(news);
    addGroups(news);
    return joined(news, sheet);
}

/// For a page that knows nothing yet.
std::string Display::everything() {
    m_told = {};
    m_told.selected = {AcDbObjectId()};  // no set of picks is like that, so it is told
    m_sheet.reset();
    const std::string sheet = sheetNews();
    Json all = state();
    addSelection(all);
    addGroups(all);
    Json names = Json::array();
    for (const std::wstring& name : host::typableNames())
        names.push_back(host::toUtf8(name));
    all["commands"] = std::move(names);
    return joined(all, sheet);
}

void Display::showSpace(const Json& request, const Reply& reply) {
    const host::Index wanted = request.at("space");
    for (const auto& [space, name] : m_reader.spaces(*store())) {
        if (space != wanted) continue;
        m_sheet.emplace(*store(), space);
        m_told.space = space;
        const std::string sheet = wholeSheet();
        return reply->set_value(joined(state(), sheet));
    }
    decline(reply, "the drawing has no such space");
}

void Display::answer(const Json& request, const Reply& reply) {
    try {
        act(request, reply);
    } catch (const Json::exception& problem) {
        decline(reply, std::string("the request lacks something: ") + problem.what());
    }
}

void Display::act(const Json& request, const Reply& reply) {
    const std::string what = request.at("do");
    if (what == "open") return reply->set_value(everything());
    if (what == "look") return reply->set_value(dump(look(request)));
    if (what == "cancel") return m_conversation.cancel(reply);
    if (what == "type") {
        std::wstring line = host::fromUtf8(request.at("line").get<std::string>());
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
