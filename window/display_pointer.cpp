// What is under the pointer of a page, and what a click there types.
#include <nlohmann/json.hpp>
#include <utility>

#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/text/text_codec.h"
#include "window/display.h"

namespace window {
namespace {

using host::Vec;
using Json = nlohmann::json;

/// How much farther than an entity a point is seen that the pointer jumps to.
constexpr double kSnapReach = 1.6;

std::wstring coordinates(double x, double y) {
    return host::fromUtf8(host::formatReal(x) + "," + host::formatReal(y));
}

std::wstring handent(AcDbObjectId id) {
    const host::ObjectBody* body = host::Store::resolve(id);
    return L"(handent \"" + host::fromUtf8(host::formatHandle(body->handle)) + L"\")";
}

}  // namespace

Json Display::look(const Json& request) {
    if (!m_sheet || store() == nullptr) return Json::object();
    const Vec point{request.at("x"), request.at("y"), 0};
    const double radius = request.at("r");
    Json found = Json::object();
    if (host::question().wanted == host::Wanted::Point && !m_conversation.atCommand()) {
        if (const auto snap = m_sheet->snap(point, kSnapReach * radius))
            found["snap"] = {{"x", snap->point.x}, {"y", snap->point.y}, {"kind", snap->kind}};
        return found;
    }
    const AcDbObjectId id = m_sheet->under(point, radius);
    const host::ObjectBody* body = host::Store::resolve(id);
    if (body == nullptr) return found;
    found["handle"] = host::formatHandle(body->handle);
    found["type"] = host::toUtf8(store()->decode(host::trimmed(body->type())));
    found["layer"] = host::toUtf8(host::layerName(*body));
    std::vector<std::string> lit;
    if (const inspection::Group* group = m_groups.of(id)) {
        found["group"] = {{"begin", group->begin},
                          {"verdict", inspection::nameOf(group->state)},
                          {"reason", group->reason}};
        if (m_conversation.atCommand() && m_watch.groupingOn()) lit = m_groups.selectedBy(id);
    }
    if (lit.empty()) lit.push_back(host::formatHandle(body->handle));
    found["lit"] = std::move(lit);
    return found;
}

void Display::click(const Json& request, const Reply& reply) {
    if (!showsCurrentSpace()) return decline(reply, "commands work in another space");
    const Vec point{request.at("x"), request.at("y"), 0};
    const double radius = request.at("r");
    const bool shift = request.value("shift", false);
    const host::Wanted wanted = host::question().wanted;
    if (!m_conversation.atCommand() && wanted == host::Wanted::Point) {
        const auto snap = m_sheet->snap(point, kSnapReach * radius);
        const Vec at = snap ? snap->point : point;
        return m_conversation.type({coordinates(at.x, at.y)}, reply);
    }
    const AcDbObjectId id = m_sheet->under(point, radius);
    const bool takes = m_conversation.atCommand() || wanted == host::Wanted::Selection ||
                       wanted == host::Wanted::Entity;
    if (id.isNull() || !takes) return reply->set_value(news());
    const std::wstring entity = handent(id);
    if (m_conversation.atCommand())
        return m_conversation.type({(shift ? L"UNPICK " : L"PICK ") + entity}, reply);
    const bool removes = shift && wanted == host::Wanted::Selection;
    m_conversation.type({removes ? L"R " + entity + L" A" : entity}, reply);
}

void Display::box(const Json& request, const Reply& reply) {
    if (!showsCurrentSpace()) return decline(reply, "commands work in another space");
    const bool shift = request.value("shift", false);
    std::wstring line = request.at("crossing").get<bool>() ? L"C " : L"W ";
    line += coordinates(request.at("x1"), request.at("y1")) + L" " +
            coordinates(request.at("x2"), request.at("y2"));
    if (m_conversation.atCommand())
        return m_conversation.type({(shift ? L"UNPICK " : L"PICK ") + line}, reply);
    if (host::question().wanted != host::Wanted::Selection) return reply->set_value(news());
    m_conversation.type({shift ? L"R " + line + L" A" : line}, reply);
}

/// Picks a member as a click does, so that the module brings the others. The picks before go.
void Display::pickGroup(const Json& request, const Reply& reply) {
    const inspection::Group* group = m_groups.beginningAt(request.at("begin"));
    if (group == nullptr || group->members.empty())
        return decline(reply, "nothing stands in this group");
    const AcDbObjectId first = group->members.front().id;
    if (first.isErased()) return decline(reply, "this group has changed");
    if (!m_conversation.atCommand()) return m_conversation.type({handent(first)}, reply);
    std::vector<std::wstring> lines;
    if (!host::pickfirst().empty()) lines.push_back(L"PICK NONE");
    lines.push_back(L"PICK " + handent(first));
    m_conversation.type(std::move(lines), reply);
}

}  // namespace window
