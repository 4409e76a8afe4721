// Fits drawings into sheets.
#include "picture/svg/sheet.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/tags/tag_values.h"
#include "host/text/text_codec.h"
#include "picture/svg/xml_text.h"

namespace picture {
namespace {

/// About ten million steps: more than any screen has, and than browsers tell apart.
int decimalsFor(double size) {
    constexpr int kDigits = 7;
    return std::clamp(kDigits - static_cast<int>(std::ceil(std::log10(size))), 0, 15);
}

/// The unit that a drawing says it is in, behind a number.
std::string unitOf(const host::Store& store) {
    constexpr const char* kUnits[] = {"units", "in", "ft", "mi", "mm", "cm", "m", "km"};
    const auto value = store.headerValue("$INSUNITS");
    const int unit = value ? host::integerOf(*value) : 0;
    return kUnits[unit > 0 && unit < 8 ? unit : 0];
}

std::string exact(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

}  // namespace

Sheet sheetFor(const std::optional<host::Box>& bounds, const std::optional<host::Box>& window,
               double mostWidth, double mostHeight) {
    Sheet sheet;
    sheet.cut = window.has_value();
    host::Box& box = sheet.view.box;
    if (window || bounds) box = window ? *window : *bounds;
    const double size = std::max(box.right - box.left, box.top - box.bottom);
    const double far = std::max({std::fabs(box.left), std::fabs(box.right), std::fabs(box.top),
                                 std::fabs(box.bottom), 1e-9});
    if (!(size > far * 1e-12)) {
        const double some = std::max(far * 1e-9, 0.5);
        box = {box.left - some, box.bottom - some, box.right + some, box.top + some};
    }
    sheet.pixel = std::max((box.right - box.left) / mostWidth, (box.top - box.bottom) / mostHeight);
    sheet.view.decimals = decimalsFor(std::max(box.right - box.left, box.top - box.bottom));
    return sheet;
}

std::string Sheet::openDrawing() const {
    return "<g transform=\"matrix(" + exact(1 / pixel) + " 0 0 " + exact(1 / pixel) + ' ' +
           exact(left) + ' ' + exact(top) + ")\"" + (cut ? " clip-path=\"url(#window)\">" : ">");
}

std::string Sheet::definitions() const {
    if (!cut) return {};
    return "<clipPath id=\"window\"><rect width=\"" + exact(view.box.right - view.box.left) +
           "\" height=\"" + exact(view.box.top - view.box.bottom) + "\"/></clipPath>\n";
}

std::string scaleBar(const Sheet& sheet, const host::Store& store, const Spot& at) {
    constexpr double kWanted = 150;  // pixels at most
    const double room = kWanted * sheet.pixel, power = std::pow(10, std::floor(std::log10(room)));
    const double length = power * (room >= 5 * power ? 5 : room >= 2 * power ? 2 : 1);
    std::string data = "M";
    addSpot(data, {at.x, at.y - 4});
    data += "v4h";
    addNumber(data, length / sheet.pixel);
    data += "v-4";
    return "<path class=\"bar\" d=\"" + data + "\"/>" +
           sheetText("small", at.x + length / sheet.pixel + 6, at.y + 1,
                     exact(length) + ' ' + unitOf(store)) +
           "\n";
}

void addAttribute(std::string& svg, const char* name, double value, int decimals) {
    svg += ' ';
    svg += name;
    svg += "=\"";
    addNumber(svg, value, decimals);
    svg += '"';
}

std::string sheetText(const char* style, double x, double y, const std::string& text) {
    std::string svg = "<text";
    if (*style != '\0') svg += std::string(" class=\"") + style + '"';
    addAttribute(svg, "x", x);
    addAttribute(svg, "y", y);
    return svg + '>' + xml(text) + "</text>";
}

std::string shortened(const std::string& text, std::size_t most) {
    if (text.size() <= most) return text;
    const std::wstring wide = host::fromUtf8(text);
    return wide.size() <= most ? text : host::toUtf8(wide.substr(0, most - 1) + L"\u2026");
}

}  // namespace picture
