// What a space shows: its entities with their outlines, and where all of it lies.
#pragma once

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

/// An entity that shows something.
struct Shown {
    const host::ObjectBody* entity;
    host::Outline outline;
    std::vector<host::OutlinePart> parts;
    std::vector<Frame> frames;
    host::Box bounds;
};

struct Scene {
    std::vector<Shown> shown;            ///< in drawing order
    std::optional<host::Box> bounds;     ///< of everything
    std::vector<std::string> shapeless;  ///< types of visible entities that say no place
};

/// Reads a space of a drawing, which has to live as long as the scene and stay as it is.
Scene readScene(const host::Store& store, host::Index space);

}  // namespace picture
