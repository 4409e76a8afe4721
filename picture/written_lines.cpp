// Places the lines of words in the area that the drawing gives them.
#include "picture/written_lines.h"

#include <cmath>

namespace picture {
namespace {

/// Height of capitals, as a part of the size of common fonts.
constexpr double kCapital = 0.72;

/// About how wide a line is in common fonts, in parts of their size; seldom too little.
double widthInFont(std::wstring_view words) {
    static const std::vector<double> kWidths = [] {
        std::vector<double> widths(128, 0.64);
        for (const char c : std::string_view("iljtfrI.,:;'|!()[] -"))
            widths[static_cast<std::size_t>(c)] = 0.38;
        for (const char c : std::string_view("mwMWGOQD@%&"))
            widths[static_cast<std::size_t>(c)] = 0.9;
        return widths;
    }();
    double width = 0;
    for (const wchar_t c : words) {
        const auto code = static_cast<std::size_t>(c);
        width += code < kWidths.size() ? kWidths[code] : code >= 0x2e80 ? 1.0 : 0.64;
    }
    return width;
}

}  // namespace

std::vector<WrittenLine> writtenLines(const host::Writing& writing,
                                      const std::vector<host::Vec>& area, const View& view) {
    const host::Vec along = area[1] - area[0], up = area[3] - area[0];
    const double width = flatLength(along), tall = flatLength(up);
    const double stretch = writing.fitted ? 1 : width / (tall * writing.aspect);
    if (!(width > 0) || !(tall > 0) || !std::isfinite(stretch)) return {};
    const host::Vec a = along * (stretch / width), b = up * (1 / tall);
    const double line = tall * writing.line;
    const double size = line * view.scale / kCapital;
    const double written =
        line * (1 + static_cast<double>(writing.lines.size() - 1) * host::kLineDistance);
    const double room = (tall - written) * writing.above;
    std::vector<WrittenLine> placed;
    for (std::size_t i = 0; i < writing.lines.size(); ++i) {
        const std::wstring_view words = writing.lines[i];
        if (words.find_first_not_of(L" \u00a0") == words.npos) continue;
        const bool fitted =
            writing.fitted || widthInFont(words) * size * stretch > width * view.scale;
        const double below = room + line * (1 + static_cast<double>(i) * host::kLineDistance);
        const host::Vec base = writing.isParagraph ? area[3] - b * below : area[0];
        placed.push_back({view.spot(base + along * writing.anchor), a, b, size, writing.anchor,
                          fitted ? width * view.scale / stretch : 0, words});
    }
    return placed;
}

}  // namespace picture
