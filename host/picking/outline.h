// From an entity's tags to what is drawn of it.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/geometry/shapes.h"
#include "host/picking/layer_states.h"
#include "host/store/object_body.h"
#include "host/tags/tag_values.h"

namespace host {

class Store;

/// A corner of a polyline, how the stroke behind it bends (the tangent of a quarter of its angle),
/// and its width at either end.
struct Corner {
    Vec point;
    double bulge = 0, startWidth = 0, endWidth = 0;
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
    void frame(const Box& box) const;
    /// The area that words fill, from a corner along and up; `writing.area` is set here.
    void write(Writing writing, const Vec& corner, const Vec& along, const Vec& up) const;
    /// Lines of a pattern; those that are no numbers are left out.
    void pattern(PatternLines lines) const;
    /// The same outline with a further place inside.
    Pen inside(const Transform& place) const { return {m_outline, m_place * place}; }
    /// The same with strokes of a width.
    Pen broad(double width) const;
    const Transform& place() const { return m_place; }

  private:
    Outline& m_outline;
    Transform m_place;
    double m_width = 0;  ///< in the drawing
};

/// By how much a map makes plane figures larger.
double scaleOf(const Transform& place);

/// What a shape is drawn from.
struct Shape {
    const Store& store;
    const ObjectBody& entity;
    std::string_view type;
    const OwnTags& tags;
    const Pen& pen;
    bool insideBlock;  ///< hides attribute definitions that are not constant
};

/// Draws an entity that needs no other one's content. Kinds without a form of their own are drawn
/// as the points they name, and then the result is false.
bool drawShape(const Shape& shape);
void drawText(const Shape& shape, bool isDefinition);
void drawMText(const Shape& shape);
void drawHatch(const Shape& shape);
void drawPolyline(const Shape& shape);
void drawLightPolyline(const Shape& shape);
void drawMultiline(const Shape& shape);
void drawTolerance(const Shape& shape);
/// Leader lines with their heads, and the text; false without the data that tells where they are.
bool drawMultileader(const Shape& shape);
/// Block that a multileader shows, from where; nothing without one.
struct PlacedBlock {
    const ObjectBody* record = nullptr;
    Transform place;
};
PlacedBlock blockOfMultileader(const Shape& shape);

/// Writes a text of paragraphs, broken at a width unless that is 0. `attachment`: which of the nine
/// points of its box stands at `at`, from 0, the upper left one, by rows.
struct ParagraphText {
    std::wstring text;
    Vec at, direction;
    double height, width;
    int attachment;
};
void drawParagraphs(const Pen& pen, const ParagraphText& paragraphs);
/// Width of a text without its codes, in heights: there are no fonts here.
double widthOfText(std::wstring_view plain);

/// Coordinates of the first point with a code (10: 10, 20, 30).
Vec pointOf(const OwnTags& tags, int code, const Vec& standard = {});
/// All points, or numbers, with a code, in order.
std::vector<Vec> pointsOf(const OwnTags& tags, int code);
std::vector<double> realsOf(const OwnTags& tags, int code);
/// The pen in the object coordinate system of tag 210.
Pen objectPen(const Shape& shape);

/// What one entity, the main one or one inside its blocks, adds to an outline: what stands there
/// from its mark up to that of the next part.
struct OutlinePart {
    const ObjectBody* source;
    std::string_view type;
    std::string_view layer;  ///< that it is drawn on; borrowed from the drawing
    OutlineMark from;
    double scale = 1;      ///< drawing units for one of the block in which it stands
    bool hasForm = false;  ///< false for a kind that is known by its points alone
};

/// How much time the reading of an entity takes, in strokes that could be drawn meanwhile; and how
/// much memory and time a part of an outline takes: strokes, corners of areas, words.
double costOf(const ObjectBody& entity);
double costOf(const Outline& outline, const OutlineMark& from);

/// Makes outlines of main entities. Layers and blocks are looked up once each where that pays;
/// short-lived.
///
/// What references repeat, arrays and nested blocks together, has one bound for all that a maker
/// draws: some millions of strokes, more in larger drawings. An entity that would go beyond it is
/// drawn as its frame, the box around it, and counted.
class OutlineMaker {
  public:
    explicit OutlineMaker(const Store& store);
    /// Empty when nothing of the entity is drawn: on a layer that is off or frozen, invisible, or a
    /// reference to a block without visible content. World coordinates.
    Outline outlineOf(const ObjectBody& entity);
    /// Adds it to an outline of several entities, and what it is made of to their parts.
    void addOutline(const ObjectBody& entity, Outline& outline, std::vector<OutlinePart>& parts);
    /// Number of entities that became frames, and a line about them.
    long framed() const { return m_framed; }
    std::string framesLine() const;
    /// Prints that line on the command line, once for each drawing.
    void tellFrames() const;

  private:
    struct Extent {
        double cost = 0;
        std::optional<Box> box;
    };

    void begin(const ObjectBody& entity, Outline& outline, std::vector<OutlinePart>* parts);
    bool goesOn() const { return m_measuring || m_spent <= m_most; }
    bool mayDraw(double cost);
    bool drawWithin(const ObjectBody& entity, double most);
    Extent measured(const ObjectBody& entity, std::string_view layer);
    const Extent& contentOf(const ObjectBody& record, std::string_view layer);
    void measureBlock(const ObjectBody& record, const Pen& pen, std::string_view layer);
    void drawAsFrame(const ObjectBody& entity, const Extent& extent);
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
    double m_left;                ///< that references may still repeat
    bool m_leftIsAll = false;     ///< the size of the drawing has been added
    double m_spent = 0;           ///< by the entity that is being drawn
    double m_most = 0;            ///< that it may spend
    bool m_measuring = false;     ///< blocks are drawn as boxes, arrays by their ends
    std::unordered_map<std::uint64_t, Extent> m_contents;  ///< of blocks that were measured
    long m_framed = 0;
};

}  // namespace host
