// Collects outlines, and frames for what has none.
#include "picture/scene.h"

#include <algorithm>
#include <cmath>

namespace picture {
namespace {

using host::OutlinePart;
using host::OwnTags;
using host::Vec;

/// Numbers beyond this are damage, not a place in a drawing.
constexpr double kFarthest = 1e15;

bool sane(const host::Box& box) {
    return box.left > -kFarthest && box.bottom > -kFarthest && box.right < kFarthest &&
           box.top < kFarthest;
}

host::Box united(const host::Box& a, const host::Box& b) {
    return {std::min(a.left, b.left), std::min(a.bottom, b.bottom), std::max(a.right, b.right),
            std::max(a.top, b.top)};
}

std::vector<Vec> rectangle(double left, double bottom, double right, double top) {
    return {{left, bottom, 0}, {right, bottom, 0}, {right, top, 0}, {left, top, 0}};
}

/// Corners of a picture-like entity by its own tags; empty for other kinds.
std::vector<Vec> ownFrame(std::string_view type, const OwnTags& tags) {
    const Vec at = host::pointOf(tags, 10);
    if (type == "IMAGE" || type == "WIPEOUT") {
        const Vec across = host::pointOf(tags, 11) * tags.real(13, 1);
        const Vec up = host::pointOf(tags, 12) * tags.real(23, 1);
        return {at, at + across, at + across + up, at + up};
    }
    if (type == "VIEWPORT") {
        const double x = tags.real(40, 0) / 2, y = tags.real(41, 0) / 2;
        return rectangle(at.x - x, at.y - y, at.x + x, at.y + y);
    }
    if (type == "OLE2FRAME") {
        const Vec other = host::pointOf(tags, 11, at);
        return rectangle(std::min(at.x, other.x), std::min(at.y, other.y), std::max(at.x, other.x),
                         std::max(at.y, other.y));
    }
    return {};
}

/// The frame of a part that stands in the outline from `part` to `next` by its points alone.
std::vector<Vec> frameOf(const host::Outline& outline, const OutlinePart& part, std::size_t end,
                         bool isMain) {
    const std::string_view type = host::trimmed(part.source->type());
    if (isMain) {
        const std::vector<Vec> own = ownFrame(type, OwnTags(part.source->tags()));
        if (!own.empty()) return own;
    }
    if (part.lines >= end) return {};
    host::Box box{kFarthest, kFarthest, -kFarthest, -kFarthest};
    for (std::size_t i = part.lines; i < end; ++i) {
        const Vec& p = outline.lines[i].a;
        box = united(box, {p.x, p.y, p.x, p.y});
    }
    return rectangle(box.left, box.bottom, box.right, box.top);
}

/// The sheet of a layout is a viewport too.
bool isSheet(const host::ObjectBody& entity) {
    return host::trimmed(entity.type()) == "VIEWPORT" && OwnTags(entity.tags()).integer(69, 0) == 1;
}

void addFrames(Shown& shown, Scene& scene) {
    for (std::size_t i = 0; i < shown.parts.size(); ++i) {
        const OutlinePart& part = shown.parts[i];
        const std::string_view type = host::trimmed(part.source->type());
        if (host::hasForm(type)) continue;
        const std::size_t end =
            i + 1 < shown.parts.size() ? shown.parts[i + 1].lines : shown.outline.lines.size();
        const bool isMain = part.source == shown.entity;
        std::vector<Vec> corners = frameOf(shown.outline, part, end, isMain);
        if (!corners.empty())
            shown.frames.push_back({std::move(corners), part.source});
        else if (isMain)
            scene.shapeless.emplace_back(type);
    }
}

std::optional<host::Box> boundsOf(const Shown& shown) {
    std::optional<host::Box> bounds = shown.outline.bounds();
    for (const Frame& frame : shown.frames) {
        host::Outline outline;
        outline.areas.push_back(frame.corners);
        const host::Box box = *outline.bounds();
        bounds = bounds ? united(*bounds, box) : box;
    }
    if (bounds && !sane(*bounds)) return std::nullopt;
    return bounds;
}

}  // namespace

Scene readScene(const host::Store& store, host::Index space) {
    Scene scene;
    host::OutlineMaker maker(store);
    for (host::Index i = space == host::kNoIndex ? host::kNoIndex : store.firstLive(space);
         i != host::kNoIndex; i = store.nextLive(store.at(i))) {
        const host::ObjectBody& entity = store.at(i);
        if (isSheet(entity)) continue;
        Shown shown{&entity, {}, {}, {}, {}};
        shown.outline = maker.outlineOf(entity, &shown.parts);
        addFrames(shown, scene);
        const std::optional<host::Box> bounds = boundsOf(shown);
        if (!bounds) continue;
        shown.bounds = *bounds;
        scene.bounds = scene.bounds ? united(*scene.bounds, *bounds) : *bounds;
        scene.shown.push_back(std::move(shown));
    }
    return scene;
}

}  // namespace picture
