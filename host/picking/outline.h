// From an entity's tags to what is drawn of it.
#pragma once

#include <vector>

#include "host/geometry/shapes.h"
#include "host/picking/layer_states.h"
#include "host/store/object_body.h"
#include "host/tags/tag_values.h"

namespace host {

class Store;

/// A corner of a polyline, and how the stroke behind it bends: the tangent of a quarter of its
/// angle.
struct Corner {
    Vec point;
    double bulge = 0;
};

/// Draws strokes given in an entity's own coordinates into an outline.
class Pen {
  public:
    Pen(Outline& outline, const Transform& place) : m_outline(outline), m_place(place) {}

    void point(const Vec& p) const { line(p, p); }
    void line(const Vec& a, const Vec& b) const;
    void endless(const Vec& a, const Vec& direction, bool bothWays) const;
    /// Counter-clockwise from `from` by `sweep` radians; any sweep of a turn or more, or none, is a
    /// whole ellipse.
    void arc(const Vec& centre, const Vec& u, const Vec& v, double from, double sweep) const;
    void circle(const Vec& centre, double radius) const;
    /// From `a` to `b` with the tangent of a quarter of the angle; 0 is straight.
    void bulge(const Vec& a, const Vec& b, double bulge) const;
    void path(const std::vector<Vec>& points, bool closed) const;
    /// Strokes from corner to corner; one corner is a point.
    void corners(const std::vector<Corner>& corners, bool closed) const;
    void area(const std::vector<Vec>& points) const;
    /// The area that words fill, from a corner along and up; `writing.area` is set here.
    void write(Writing writing, const Vec& corner, const Vec& along, const Vec& up) const;
    /// The same outline with a further place inside.
    Pen inside(const Transform& place) const { return {m_outline, m_place * place}; }
    const Transform& place() const { return m_place; }

  private:
    Outline& m_outline;
    Transform m_place;
};

/// What a shape is drawn from.
struct Shape {
    const Store& store;
    const ObjectBody& entity;
    std::string_view type;
    const OwnTags& tags;
    const Pen& pen;
};

/// Draws an entity that needs no other one's content; `insideBlock` hides attribute definitions
/// that are not constant. Kinds without a form of their own are drawn as the points they name, and
/// then the result is false.
bool drawShape(const Shape& shape, bool insideBlock);
void drawText(const Shape& shape, bool isDefinition);
void drawMText(const Shape& shape);
void drawHatch(const Shape& shape);
void drawPolyline(const Shape& shape);

/// Coordinates of the first point with a code (10: 10, 20, 30).
Vec pointOf(const OwnTags& tags, int code, const Vec& standard = {});
/// All points with a code, in order.
std::vector<Vec> pointsOf(const OwnTags& tags, int code);
/// The pen in the object coordinate system of tag 210.
Pen objectPen(const Shape& shape);

/// What one entity, the main one or one inside its blocks, adds to an outline: what stands there
/// from its mark up to that of the next part.
struct OutlinePart {
    const ObjectBody* source;
    std::string_view type;
    std::string_view layer;  ///< that it is drawn on; borrowed from the drawing
    OutlineMark from;
    bool hasForm = false;  ///< false for a kind that is known by its points alone
};

/// Makes outlines of main entities. Layers and blocks are looked up once each where that pays;
/// short-lived.
class OutlineMaker {
  public:
    explicit OutlineMaker(const Store& store) : m_store(store), m_layers(store) {}
    /// Empty when nothing of the entity is drawn: on a layer that is off or frozen, invisible, or a
    /// reference to a block without visible content. World coordinates.
    Outline outlineOf(const ObjectBody& entity);
    /// Adds it to an outline of several entities, and what it is made of to their parts.
    void addOutline(const ObjectBody& entity, Outline& outline, std::vector<OutlinePart>& parts);

  private:
    void begin(const ObjectBody& entity, Outline& outline);
    void draw(const ObjectBody& entity, const Pen& pen, std::string_view layerOfReference);
    void drawReference(const Shape& shape, std::string_view layer);
    /// Block record that tag 2 names, or null.
    const ObjectBody* blockOf(const OwnTags& tags) const;
    void drawBlock(const ObjectBody* record, const Pen& pen, std::string_view layer);

    const Store& m_store;
    LayerStates m_layers;
    Outline* m_outline = nullptr;  ///< being made
    std::vector<OutlinePart>* m_parts = nullptr;
    std::vector<Index> m_blocks;  ///< being drawn, outermost first
    int m_budget = 0;             ///< entities that may still be visited
};

}  // namespace host
