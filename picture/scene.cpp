// Collects outlines, and frames for what has none.
#include "picture/scene.h"

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
        return cornersOf(host::Box{at.x - x, at.y - y, at.x + x, at.y + y});
    }
    if (type == "OLE2FRAME") {
        return cornersOf(host::boundsOf({at, host::pointOf(tags, 11, at)}));
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
    for (std::size_t i = part.from.lines; i < end; ++i)
        extend(box, scene.outline.lines[i].a);
    return cornersOf(*box);
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
    for (std::size_t i = firstFrame; i < scene.frames.size(); ++i)
        extend(bounds, host::boundsOf(scene.frames[i].corners));
    if (!bounds || !sane(*bounds)) return;
    extend(scene.bounds, bounds);
    scene.shown.push_back(
        {&entity, firstPart, scene.parts.size(), firstFrame, scene.frames.size(), *bounds});
}

}  // namespace

bool Scene::isEndless(const Shown& one) const {
    const std::size_t end = endOf(one.lastPart - 1).lines;
    for (std::size_t i = parts[one.firstPart].from.lines; i < end; ++i) {
        if (outline.lines[i].endlessA || outline.lines[i].endlessB) return true;
    }
    return false;
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
    for (const host::ObjectBody* entity : entities)
        add(scene, maker, *entity);
    return scene;
}

Scene readScene(const host::Store& store, host::Index space, const Filter& filter) {
    Scene scene;
    // Pages that nothing comes to cost nothing; growing would copy what stands there already.
    scene.shown.reserve(store.count());
    scene.parts.reserve(store.count());
    scene.outline.lines.reserve(store.count());
    scene.outline.arcs.reserve(store.count());
    scene.outline.areas.reserve(store.count());
    scene.outline.writings.reserve(store.count());
    host::OutlineMaker maker(store);
    for (const host::ObjectBody& entity : store.children(space))
        if (!filter || filter(entity)) add(scene, maker, entity);
    scene.repeating = maker.framed();
    return scene;
}

}  // namespace picture
