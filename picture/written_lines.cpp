// Places the lines of words in the area that the drawing gives them.
#include "picture/written_lines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "picture/plain_text.h"

namespace picture {
namespace {

/// Height of capitals, as a part of the size of common fonts.
constexpr double kCapital = 0.72;
constexpr double kLineDistance = 5.0 / 3;

double flatLength(const host::Vec& v) { return std::hypot(v.x, v.y); }

}  // namespace

std::vector<WrittenLine> writtenLines(const host::Writing& writing,
                                      const std::vector<host::Vec>& area, const View& view) {
    const host::Vec along = area[1] - area[0], up = area[3] - area[0];
    const double width = flatLength(along), tall = flatLength(up);
    const double stretch = writing.fitted ? 1 : width / (tall * writing.aspect);
    if (!(width > 0) || !(tall > 0) || !std::isfinite(stretch)) return {};
    const host::Vec a = along * (stretch / width), b = up * (1 / tall);
    const double line = tall * writing.line;
    std::vector<std::wstring> lines;
    if (writing.isParagraph) {
        const double character = line / kCapital * kCharacterWidth * stretch;
        const double fitting = std::min(1e6, width / character);
        lines = linesOfParagraphs(writing.words, static_cast<std::size_t>(fitting) + 1);
    } else {
        lines = {singleLine(writing.words)};
    }
    const double size = std::max(line * view.scale / kCapital, 0.01);
    const double written = line * (1 + static_cast<double>(lines.size() - 1) * kLineDistance);
    const double room = (tall - written) * writing.above;
    const double fitted = writing.fitted ? width * view.scale : 0;
    std::vector<WrittenLine> placed;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].find_first_not_of(L" \u00a0") == std::wstring::npos) continue;
        const double below = room + line * (1 + static_cast<double>(i) * kLineDistance);
        const host::Vec base = writing.isParagraph ? area[3] - b * below : area[0];
        placed.push_back({view.spot(base + along * writing.anchor), a, b, size, writing.anchor,
                          fitted, std::move(lines[i])});
    }
    return placed;
}

}  // namespace picture
