// Boxes of texts, from height and number of characters: there are no fonts here.
#include <algorithm>
#include <cmath>

#include "host/geometry/angles.h"
#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/text/plain_text.h"

namespace host {
namespace {

/// Mean width of a character, in heights.
constexpr double kCharacterWidth = 0.8;

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

}  // namespace

void drawText(const Shape& shape, bool isDefinition) {
    const OwnTags& tags = shape.tags;
    constexpr int kBackward = 2, kUpsideDown = 4;
    const int generation = tags.integer(71, 0);
    std::wstring value = singleLine(shape.store.decode(tags.text(isDefinition ? 2 : 1)));
    const double aspect = widthOfText(value);
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
        width = flatLength(end - start);
        angle = std::atan2(end.y - start.y, end.x - start.x);
    } else if (horizontal != 0 || vertical != 0) {
        const Vec offset{-width * partBefore(horizontal), -height * partBelow(horizontal, vertical),
                         0};
        start = end + rotation(angle).turn(offset);
    }
    if (value.empty()) return;
    const double anchor = stretched ? 0 : partBefore(horizontal);
    drawBox(objectPen(shape), start, angle, width, height, slant,
            {0, {std::move(value)}, 1, aspect, anchor, 0, false, stretched});
}

void drawMText(const Shape& shape) {
    const OwnTags& tags = shape.tags;
    std::wstring value;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == 1 || tag.code == 3) value += shape.store.decode(tag.value);
    }
    const Vec direction = pointOf(tags, 11, paragraphDirection(tags.real(50, 0)));
    drawParagraphs(shape.pen, {std::move(value), pointOf(tags, 10), direction, tags.real(40, 0),
                               tags.real(41, 0), std::clamp(tags.integer(71, 1), 1, 9) - 1});
}

void drawParagraphs(const Pen& pen, const ParagraphText& text) {
    if (text.text.empty()) return;
    const double room = text.width / (text.height * kCharacterWidth);
    const bool breaks = text.width > 0 && std::isfinite(room);
    std::vector<std::wstring> lines = linesOfParagraphs(
        text.text, breaks ? static_cast<std::size_t>(std::clamp(room, 1.0, 1e6)) : 0);
    double width = 0;
    for (const std::wstring& line : lines)
        width = std::max(width, text.height * widthOfText(line));
    if (text.width > 0) width = std::min(width, text.width);
    const double tall = text.height * (1 + static_cast<double>(lines.size() - 1) * kLineDistance);
    const double angle = std::atan2(text.direction.y, text.direction.x);
    const Vec offset{-width * 0.5 * (text.attachment % 3),
                     -tall * (1 - 0.5 * (text.attachment / 3)), 0};
    drawBox(pen, text.at + rotation(angle).turn(offset), angle, width, tall, 0,
            {0, std::move(lines), text.height / tall, width / tall, 0.5 * (text.attachment % 3),
             0.5 * (text.attachment / 3), true, false});
}

double widthOfText(std::wstring_view plain) {
    return kCharacterWidth * static_cast<double>(plain.size());
}

}  // namespace host
