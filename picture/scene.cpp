// Collects outlines, and frames for what has none.
#include "picture/scene.h"

#include <algorithm>
#include <cmath>

#include "host/content/paper_viewport.h"

namespace picture {
namespace {

using host::OutlinePart;
using host::OwnTags;
using host::Vec;

/// Numbers beyond this are damage, not a place in a drawing.
constexpr double kDamageBeyond = 1e15;

bool sane(const host::Box& box) {
    return box.left > -kDamageBeyond && box.bottom > -kDamageBeyond && box.right < kDamageBeyond &&
           box.top < kDamageBeyond;
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

/// The frame of a part that the outline shows by its points alone.
std::vector<Vec> frameOf(const Scene& scene, std::size_t index, bool isMain) {
    const OutlinePart& part = scene.parts[index];
    if (isMain) {
        const std::vector<Vec> own = ownFrame(part.type, OwnTags(part.source->tags()));
        if (!own.empty()) return own;
    }
    const std::size_t end = scene.endOf(index).lines;
    if (part.from.lines >= end) return {};
    std::optional<host::Box> box;
    for (std::size_t i = part.from.lines; i < end; ++i) {
        const Vec& p = scene.outline.lines[i].a;
        extend(box, host::Box{p.x, p.y, p.x, p.y});
    }
    return rectangle(box->left, box->bottom, box->right, box->top);
}

void addFrames(Scene& scene, const host::ObjectBody& entity, std::size_t firstPart) {
    for (std::size_t i = firstPart; i < scene.parts.size(); ++i) {
        if (scene.parts[i].hasForm) continue;
        const host::ObjectBody& source = *scene.parts[i].source;
        std::vector<Vec> corners = frameOf(scene, i, &source == &entity);
        if (!corners.empty())
            scene.frames.push_back({std::move(corners), &source});
        else if (&source == &entity)
            ++scene.shapeless[std::string(scene.parts[i].type)];
    }
}

void add(Scene& scene, host::OutlineMaker& maker, const host::ObjectBody& entity) {
    const host::OutlineMark from = scene.outline.mark();
    const std::size_t firstPart = scene.parts.size(), firstFrame = scene.frames.size();
    maker.addOutline(entity, scene.outline, scene.parts);
    addFrames(scene, entity, firstPart);
    std::optional<host::Box> bounds = scene.outline.bounds(from);
    for (std::size_t i = firstFrame; i < scene.frames.size(); ++i) {
        host::Outline frame;
        frame.areas.push_back(scene.frames[i].corners);
        extend(bounds, frame.bounds());
    }
    if (!bounds || !sane(*bounds)) return;
    extend(scene.bounds, bounds);
    scene.shown.push_back(
        {&entity, firstPart, scene.parts.size(), firstFrame, scene.frames.size(), *bounds});
}

}  // namespace

std::vector<Vec> Scene::cornersOf(const Shown& one) const {
    constexpr std::size_t kFew = 64;
    const host::OutlineMark from = parts[one.firstPart].from, end = endOf(one.lastPart - 1);
    const bool straight = from.arcs == end.arcs && from.areas == end.areas &&
                          one.firstFrame == one.lastFrame && end.lines - from.lines <= kFew;
    const host::Box& box = one.bounds;
    if (!straight) return rectangle(box.left, box.bottom, box.right, box.top);
    std::vector<Vec> ends;
    for (std::size_t i = from.lines; i < end.lines; ++i)
        ends.insert(ends.end(), {outline.lines[i].a, outline.lines[i].b});
    return ends;
}

bool isWords(const host::Outline& outline, const host::OutlineMark& from,
             const host::OutlineMark& end, std::size_t area) {
    for (std::size_t i = from.writings; i < end.writings; ++i) {
        if (outline.writings[i].area == area) return true;
    }
    return false;
}

Scene readScene(const host::Store& store, const std::vector<const host::ObjectBody*>& entities) {
    Scene scene;
    host::OutlineMaker maker(store);
    for (const host::ObjectBody* entity : entities) {
        if (!host::isPaperViewport(*entity)) add(scene, maker, *entity);
    }
    return scene;
}

Scene readScene(const host::Store& store, host::Index space) {
    Scene scene;
    // Pages that nothing comes to cost nothing; growing would copy what stands there already.
    scene.shown.reserve(store.count());
    scene.parts.reserve(store.count());
    scene.outline.lines.reserve(store.count());
    scene.outline.arcs.reserve(store.count());
    host::OutlineMaker maker(store);
    for (const host::ObjectBody& entity : store.children(space))
        if (!host::isPaperViewport(entity)) add(scene, maker, entity);
    scene.repeating = maker.framed();
    return scene;
}

}  // namespace picture
