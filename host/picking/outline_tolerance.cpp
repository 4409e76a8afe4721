// Tolerances: rows of boxes with symbols and numbers.
#include <cmath>

#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/text/plain_text.h"

namespace host {
namespace {

/// What stands between separators, without the last piece when that is empty.
std::vector<std::wstring> piecesOf(const std::wstring& text, const std::wstring& separator) {
    std::vector<std::wstring> pieces;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = text.find(separator, begin);
        pieces.push_back(text.substr(begin, end - begin));
        if (end == std::wstring::npos) break;
        begin = end + separator.size();
    }
    if (pieces.back().empty()) pieces.pop_back();
    return pieces;
}

/// Height of the text, by the dimension style.
double textHeight(const Shape& shape) {
    constexpr double kStandard = 0.18;
    const ObjectBody* style =
        shape.store.symbol("DIMSTYLE", shape.store.decode(shape.tags.text(3, "STANDARD")));
    if (style == nullptr) return kStandard;
    const OwnTags tags(style->tags());
    const double scale = tags.real(40, 1);
    return std::fabs(tags.real(140, kStandard) * (scale > 0 ? scale : 1));
}

}  // namespace

void drawTolerance(const Shape& shape) {
    const Vec along = pointOf(shape.tags, 11, {1, 0, 0});
    Transform place = rotation(std::atan2(along.y, along.x));
    place.origin = pointOf(shape.tags, 10);
    const Pen pen = shape.pen.inside(place);
    const double height = textHeight(shape);
    double top = height;  // the point is the middle of the first row's left side
    for (const std::wstring& row : piecesOf(shape.store.decode(shape.tags.text(1)), L"^J")) {
        double left = 0;
        for (const std::wstring& cell : piecesOf(row, L"%%v")) {
            const std::wstring words = linesOfParagraphs(cell, 0).front();
            if (words.empty()) continue;
            const double width = height * widthOfText(words), right = left + width + height;
            pen.path({{left, top, 0},
                      {right, top, 0},
                      {right, top - 2 * height, 0},
                      {left, top - 2 * height, 0}},
                     true);
            pen.write({0, {words}, 1, width / height, 0.5, 0, false, false},
                      {left + height / 2, top - height * 1.5, 0}, {width, 0, 0}, {0, height, 0});
            left = right;
        }
        top -= 2 * height;
    }
    if (top == height) pen.point({});
}

}  // namespace host
