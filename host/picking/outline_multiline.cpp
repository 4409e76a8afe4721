// Multilines: the elements between their vertices with what was cut out of them, joints and caps.
#include <algorithm>

#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// A vertex; each element passes it at a distance along the mitre, and goes on from there as far as
/// its further numbers say: where pieces of it end and begin.
struct MultilineVertex {
    Vec at, along, mitre;
    std::vector<std::vector<double>> elements;

    Vec place(std::size_t element) const {
        const bool known = element < elements.size() && !elements[element].empty();
        return known ? at + mitre * elements[element].front() : at;
    }
};

std::vector<MultilineVertex> verticesOf(const OwnTags& tags) {
    std::vector<MultilineVertex> vertices;
    Vec* point = nullptr;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == 11) vertices.emplace_back();
        if (vertices.empty()) continue;
        MultilineVertex& vertex = vertices.back();
        const double value = realOf(tag.value);
        if (tag.code == 11) point = &vertex.at;
        if (tag.code == 12) point = &vertex.along;
        if (tag.code == 13) point = &vertex.mitre;
        if (tag.code >= 11 && tag.code <= 13) point->x = value;
        if (tag.code >= 21 && tag.code <= 23) point->y = value;
        if (tag.code >= 31 && tag.code <= 33) point->z = value;
        if (tag.code == 74) vertex.elements.emplace_back();
        if (tag.code == 41 && !vertex.elements.empty()) vertex.elements.back().push_back(value);
    }
    return vertices;
}

void drawElement(const Pen& pen, const MultilineVertex& from, const MultilineVertex& to,
                 std::size_t element) {
    const Vec begin = from.place(element), end = to.place(element);
    const std::vector<double>& cuts = from.elements[element];
    if (cuts.size() <= 2) return pen.line(begin, end);
    for (std::size_t i = 1; i < cuts.size(); i += 2) {
        const Vec stop = i + 1 < cuts.size() ? begin + from.along * cuts[i + 1] : end;
        pen.line(begin + from.along * cuts[i], stop);
    }
}

/// Across all elements at a vertex: straight, or round on the side of `outwards`.
void drawAcross(const Pen& pen, const MultilineVertex& vertex, const Vec* outwards) {
    std::vector<double> offsets;
    for (const std::vector<double>& element : vertex.elements) {
        if (!element.empty()) offsets.push_back(element.front());
    }
    if (offsets.empty()) return;
    const auto [low, high] = std::minmax_element(offsets.begin(), offsets.end());
    const Vec a = vertex.at + vertex.mitre * *low, b = vertex.at + vertex.mitre * *high;
    if (outwards == nullptr) return pen.line(a, b);
    const Vec right{b.y - a.y, a.x - b.x, 0};
    pen.bulge(a, b, dot(right, *outwards) > 0 ? 1 : -1);
}

int styleFlags(const Shape& shape) {
    const ObjectBody* style = shape.store.byHandle(shape.tags.text(340));
    return style != nullptr && !style->erased ? OwnTags(style->tags()).integer(70, 0) : 0;
}

}  // namespace

void drawMultiline(const Shape& shape) {
    constexpr int kClosed = 2, kNoStartCaps = 4, kNoEndCaps = 8;
    constexpr int kJoints = 2, kStartLine = 16, kStartRound = 64, kEndLine = 256, kEndRound = 1024;
    const std::vector<MultilineVertex> vertices = verticesOf(shape.tags);
    if (vertices.size() < 2) {
        for (const MultilineVertex& vertex : vertices)
            shape.pen.point(vertex.at);
        return;
    }
    const int flags = shape.tags.integer(71, 0);
    const bool closed = (flags & kClosed) != 0;
    const int style = styleFlags(shape);
    for (std::size_t i = 0; i + (closed ? 0 : 1) < vertices.size(); ++i) {
        const MultilineVertex& next = vertices[(i + 1) % vertices.size()];
        for (std::size_t k = 0; k < vertices[i].elements.size(); ++k)
            drawElement(shape.pen, vertices[i], next, k);
        if ((i > 0 || closed) && (style & kJoints) != 0)
            drawAcross(shape.pen, vertices[i], nullptr);
    }
    const int caps = closed ? 0 : style;
    const Vec back = vertices.front().along * -1;
    const Vec& ahead = vertices[vertices.size() - 2].along;
    const int atStart = (flags & kNoStartCaps) == 0 ? caps : 0;
    const int atEnd = (flags & kNoEndCaps) == 0 ? caps : 0;
    if ((atStart & kStartLine) != 0) drawAcross(shape.pen, vertices.front(), nullptr);
    if ((atStart & kStartRound) != 0) drawAcross(shape.pen, vertices.front(), &back);
    if ((atEnd & kEndLine) != 0) drawAcross(shape.pen, vertices.back(), nullptr);
    if ((atEnd & kEndRound) != 0) drawAcross(shape.pen, vertices.back(), &ahead);
}

}  // namespace host
