// Boxes of texts, from height and number of characters: there are no fonts here.
#include <algorithm>
#include <cmath>

#include "host/geometry/angles.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

/// Mean width of a character and distance of lines, in heights.
constexpr double kCharacterWidth = 0.8;
constexpr double kLineDistance = 5.0 / 3;

/// `slant` leans the box to the right: its tangent.
void drawBox(const Pen& pen, const Vec& corner, double angle, double width, double height,
             double slant, Writing writing) {
    const Transform turned = rotation(angle);
    const Vec along = turned.turn({width, 0, 0}), up = turned.turn({height * slant, height, 0});
    pen.write(std::move(writing), corner, along, up);
}

/// Tangent of the oblique angle, at most that of 85 degrees.
double slantOf(const OwnTags& tags) {
    constexpr double kMost = 85;
    return std::tan(toRadians(std::clamp(tags.real(51, 0), -kMost, kMost)));
}

/// Part of the width or height that lies before the alignment point, by tags 72 and 73.
double partBefore(int horizontal) {
    return horizontal == 1 || horizontal == 4 ? 0.5 : horizontal == 2 ? 1 : 0;
}
double partBelow(int horizontal, int vertical) {
    if (horizontal == 4) return 0.5;
    return vertical == 2 ? 0.5 : vertical == 3 ? 1 : 0;
}

/// Length of the longest paragraph, and how many there are.
struct Extent {
    std::size_t longest = 0;
    std::size_t paragraphs = 1;
};

Extent extentOf(const std::wstring& text) {
    Extent extent;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = text.find(L"\\P", begin);
        extent.longest = std::max(extent.longest, std::min(end, text.size()) - begin);
        if (end == std::wstring::npos) return extent;
        begin = end + 2;
        ++extent.paragraphs;
    }
}

}  // namespace

void drawText(const Shape& shape, bool isDefinition) {
    const OwnTags& tags = shape.tags;
    constexpr int kBackward = 2, kUpsideDown = 4;
    const int generation = tags.integer(71, 0);
    std::wstring value = shape.store.decode(tags.text(isDefinition ? 2 : 1));
    const double aspect = kCharacterWidth * static_cast<double>(value.size());
    double height = tags.real(40, 0);
    double width = height * tags.real(41, 1) * aspect;
    double slant = slantOf(tags);
    if ((generation & kBackward) != 0) width = -width, slant = -slant;
    if ((generation & kUpsideDown) != 0) height = -height, slant = -slant;
    const int horizontal = tags.integer(72, 0);
    // The vertical mode is 73 in texts and 74 in attributes, where 73 is a field length.
    const int vertical = tags.integer(shape.type == "TEXT" ? 73 : 74, 0);
    Vec start = pointOf(tags, 10);
    double angle = toRadians(tags.real(50, 0));
    const Vec end = pointOf(tags, 11, start);
    const bool stretched = horizontal == 3 || horizontal == 5;
    if (stretched) {
        width = std::hypot(end.x - start.x, end.y - start.y);
        angle = std::atan2(end.y - start.y, end.x - start.x);
    } else if (horizontal != 0 || vertical != 0) {
        const Vec offset{-width * partBefore(horizontal), -height * partBelow(horizontal, vertical),
                         0};
        start = end + rotation(angle).turn(offset);
    }
    if (value.empty()) return;
    const double anchor = stretched ? 0 : partBefore(horizontal);
    drawBox(objectPen(shape), start, angle, width, height, slant,
            {0, std::move(value), 1, aspect, anchor, 0, false, stretched});
}

void drawMText(const Shape& shape) {
    const OwnTags& tags = shape.tags;
    std::wstring value;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == 1 || tag.code == 3) value += shape.store.decode(tag.value);
    }
    if (value.empty()) return;
    const Extent extent = extentOf(value);
    const double height = tags.real(40, 0), frame = tags.real(41, 0);
    double width = height * kCharacterWidth * static_cast<double>(extent.longest);
    double lines = static_cast<double>(extent.paragraphs);
    if (frame > 0 && width > frame) {
        lines *= std::ceil(width / frame);
        width = frame;
    }
    const double tall = height * (1 + (lines - 1) * kLineDistance);
    const int attachment = std::clamp(tags.integer(71, 1), 1, 9) - 1;  // 0 top left, by rows
    const Vec direction = pointOf(tags, 11, paragraphDirection(tags.real(50, 0)));
    const double angle = std::atan2(direction.y, direction.x);
    const Vec offset{-width * 0.5 * (attachment % 3), -tall * (1 - 0.5 * (attachment / 3)), 0};
    drawBox(shape.pen, pointOf(tags, 10) + rotation(angle).turn(offset), angle, width, tall, 0,
            {0, std::move(value), height / tall, width / tall, 0.5 * (attachment % 3),
             0.5 * (attachment / 3), true, false});
}

}  // namespace host
