// What is under the pointer of a page, and what a click there types.
#include <utility>

#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/text/text_codec.h"
#include "window/display.h"

namespace window {
namespace {

using host::Vec;

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

json::Object Display::look(const json::Request& request) {
    if (!m_sheet || store() == nullptr) return {};
    const Vec point{request.number("x"), request.number("y"), 0};
    const double radius = request.number("r");
    json::Object found;
    if (host::question().wanted == host::Wanted::Point && !m_conversation.atCommand()) {
        if (const auto snap = m_sheet->snap(point, kSnapReach * radius))
            found.add(
                "snap",
                json::Object{{"x", snap->point.x}, {"y", snap->point.y}, {"kind", snap->kind}});
        return found;
    }
    const AcDbObjectId id = m_sheet->under(point, radius);
    const host::ObjectBody* body = host::Store::resolve(id);
    if (body == nullptr) return found;
    found.add("handle", host::formatHandle(body->handle));
    found.add("type", host::toUtf8(store()->decode(host::trimmed(body->type()))));
    found.add("layer", host::toUtf8(host::layerName(*body)));
    std::vector<std::string> lit;
    if (const inspection::Group* group = m_groups.of(id)) {
        found.add("group", json::Object{{"begin", group->begin},
                                        {"verdict", inspection::nameOf(group->state)},
                                        {"reason", group->reason}});
        if (m_conversation.atCommand() && m_watch.groupingOn()) lit = m_groups.selectedBy(id);
    }
    if (lit.empty()) lit.push_back(host::formatHandle(body->handle));
    return found.add("lit", json::Value::list(lit));
}

void Display::click(const json::Request& request, const Reply& reply) {
    if (!showsCurrentSpace()) return decline(reply, "commands work in another space");
    const Vec point{request.number("x"), request.number("y"), 0};
    const double radius = request.number("r");
    const bool shift = request.flag("shift", false);
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

void Display::box(const json::Request& request, const Reply& reply) {
    if (!showsCurrentSpace()) return decline(reply, "commands work in another space");
    const bool shift = request.flag("shift", false);
    std::wstring line = request.flag("crossing") ? L"C " : L"W ";
    line += coordinates(request.number("x1"), request.number("y1")) + L" " +
            coordinates(request.number("x2"), request.number("y2"));
    if (m_conversation.atCommand())
        return m_conversation.type({(shift ? L"UNPICK " : L"PICK ") + line}, reply);
    if (host::question().wanted != host::Wanted::Selection) return reply->set_value(news());
    m_conversation.type({shift ? L"R " + line + L" A" : line}, reply);
}

/// Picks a member as a click does, so that the module brings the others. The picks before go.
void Display::pickGroup(const json::Request& request, const Reply& reply) {
    const inspection::Group* group = m_groups.beginningAt(request.text("begin"));
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
