// Moving and mirroring stored entities.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/geometry/rigid_map.h"
#include "host/store/object_body.h"

namespace host {

class Store;

/// A move or a mirroring of entities, checked as a whole before anything changes.
///
/// What belongs to an entity goes along: vertices, attributes, what it keeps for other annotation
/// scales, and the anonymous block with the picture of a dimension. This and the block of a table
/// get a copy of their own when another dimension or table shows them too.
/// Mirroring is true reflection: texts and hatch patterns are mirrored as with MIRRTEXT 1 and
/// MIRRHATCH 1, because the width of a text is not known here; only the centred text in a
/// dimension's picture stays readable, as it does there. Points of the drawing in extended data
/// (1011) and directions (1012, 1013) follow.
class EntityTransform {
  public:
    /// `done` is the verb of refusals: "moved", "mirrored", "copied".
    EntityTransform(const RigidMap& map, std::string done) : m_map(map), m_done(std::move(done)) {}

    /// True when the entity, with all that goes along, can be transformed; else problem() says in
    /// one line why not and what to do. Changes nothing.
    bool check(const ObjectBody& entity);
    const std::string& problem() const { return m_problem; }
    /// Transforms entities of one store; each has passed the check, or is a copy of one that has.
    void apply(Store& store, const std::vector<Index>& entities);

  private:
    using Texts = std::vector<std::pair<Index, std::string>>;

    /// An entity with its parts. `main` is the one that is refused.
    bool planAll(const ObjectBody& entity, const ObjectBody& main, bool inPicture, Texts& texts);
    bool planPicture(const ObjectBody& dimension, Texts& texts);
    /// One body with what it keeps for annotation scales.
    bool planOne(const ObjectBody& body, const ObjectBody& main, bool inPicture, Texts& texts);
    bool plan(const ObjectBody& body, const Vec& extrusion, bool inPicture, const ObjectBody& main,
              Texts& texts);
    bool refuse(const ObjectBody& main, const std::string& why = {});

    RigidMap m_map;
    std::string m_done;
    std::string m_problem;
};

}  // namespace host
