// What groups a drawing has, what is wrong with them, and what the repair pass makes of them.
//
// A reader of its own over the platform interface: it takes names from storage/ and trusts nothing
// else of what it judges. It changes nothing.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/objectarx/object_id.h"

class AcDbDatabase;

namespace inspection {

enum class State {
    Whole,   ///< the markers name each other and hold as many entities as counted
    Short,   ///< fewer than counted
    Over,    ///< more than counted; vertices of 3D polylines and meshes count
    Empty,   ///< nothing stands between the markers
    Broken,  ///< markers that do not name each other, a marker between them, a count without a
             ///< number
};

/// What the repair pass, which runs before a save, makes of a group.
enum class Repair {
    Stays,
    Shortened,  ///< the count is lowered
    Linked,     ///< its markers name each other again
    Dissolved,  ///< both markers go, the members stay
    Damaged,    ///< its markers stay and do not become a pair
    Halved,     ///< one of its markers goes
};

/// Left, bottom, right and top in drawing units.
using Extents = std::array<double, 4>;

/// Main entity of a space. Texts are UTF-8.
struct Entity {
    AcDbObjectId id;
    std::string handle, type, layer;
    std::optional<Extents> extents = {};  ///< of what is drawn of it; nothing when nobody asked
    bool hasRecord = false;
};

/// A begin marker and the end marker that follows it.
struct Group {
    std::string begin, end;  ///< handles of the markers
    std::string space;
    int count = 0;                ///< what the begin marker says, as the module reads it
    std::vector<Entity> members;  ///< in drawing order
    std::optional<Extents> extents;
    State state = State::Whole;
    Repair repair = Repair::Stays;
    std::string reason;   ///< one clause for a drafter; empty for a whole group
    std::string outlook;  ///< one clause on what the next save does; empty for a whole group
};

/// A marker without a partner, or an entity outside of any group that has a group record.
struct Stray {
    std::string handle, type;
    std::string what;  ///< "begin marker", "end marker", "marker" or "group record"
    std::string space;
    std::string reason;
};

struct Inspection {
    std::string prefix;
    std::vector<Group> groups;  ///< by space, in drawing order
    std::vector<Stray> strays;
    long whole() const;
    bool good() const { return strays.empty() && whole() == static_cast<long>(groups.size()); }
};

/// A space to look at: its block and its name for readers ("Model", or that of a layout).
struct Space {
    AcDbObjectId block;
    std::string name;
};
/// What an entity is and where; whether it has a record is judged here.
using Describe = std::function<Entity(AcDbObjectId)>;

/// Judges the groups of a drawing, which is the working one meanwhile. Objects are opened for read
/// and closed again; none may be open for write. Time grows with the number of entities.
Inspection inspect(AcDbDatabase& drawing, const std::vector<Space>& spaces,
                   const Describe& describe);

/// True for the names (UTF-8) that layers and blocks of markers have, in drawings of either kind.
bool isMarkerName(const std::string& name);

/// "whole", "short", ... as the list prints it.
const char* nameOf(State state);

}  // namespace inspection
