// What entities show: their outlines, and frames for what has none.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/picking/outline.h"
#include "host/store/store.h"

namespace picture {

/// A frame in place of an entity that has no form in this host.
struct Frame {
    std::vector<host::Vec> corners;  ///< four
    const host::ObjectBody* source;
};

/// An entity that shows something: a range of the scene's parts and one of its frames.
struct Shown {
    const host::ObjectBody* entity;
    std::size_t firstPart, lastPart;
    std::size_t firstFrame, lastFrame;
    host::Box bounds;
};

/// What all entities of a space show. They share their memory: a drawing can have millions.
struct Scene {
    host::Outline outline;
    std::vector<host::OutlinePart> parts;
    std::vector<Frame> frames;
    std::vector<Shown> shown;              ///< in drawing order
    std::optional<host::Box> bounds;       ///< of everything
    std::map<std::string, int> shapeless;  ///< visible entities that say no place, by type
    long repeating = 0;                    ///< entities that are frames: they repeat too much

    /// Where a part ends in the outline.
    host::OutlineMark endOf(std::size_t part) const {
        return part + 1 < parts.size() ? parts[part + 1].from : outline.mark();
    }
    /// Points with the convex hull of what an entity shows, or of the box around that.
    std::vector<host::Vec> cornersOf(const Shown& shown) const;
};

/// True when the area is the place of words between two marks of an outline.
bool isWords(const host::Outline& outline, const host::OutlineMark& from,
             const host::OutlineMark& end, std::size_t area);

/// Reads a space of a drawing, which has to live as long as the scene and stay as it is.
Scene readScene(const host::Store& store, host::Index space);
/// The same for some of its entities alone.
Scene readScene(const host::Store& store, const std::vector<const host::ObjectBody*>& entities);

}  // namespace picture
