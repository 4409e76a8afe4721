// Hulls, labels and the legend.
#include "picture/group_frames.h"

#include <algorithm>

#include "host/text/text_codec.h"
#include "picture/plain_text.h"
#include "picture/style.h"

namespace picture {
namespace {

constexpr double kRowHeight = 20, kReasonHeight = 15, kLabelHeight = 18;
constexpr double kLabelCharacter = 6.9;  ///< mean width in a text of 12 units
/// With more groups than these, labels do not count members; those of whole groups are left out.
constexpr std::size_t kFullLabels = 40, kAnyLabels = 400, kMostLabels = 2000;

std::string membersOf(const inspection::Group& group) {
    const std::size_t count = group.members.size();
    return std::to_string(count) + (count == 1 ? " member" : " members");
}

bool isWhole(const inspection::Group& group) { return group.state == inspection::State::Whole; }

std::string styleOf(std::size_t number, const inspection::Group& group) {
    return "q" + std::to_string((number - 1) % kGroupColours) + (isWhole(group) ? "" : " bad");
}

std::string at(const char* name, double value) {
    std::string text = std::string(" ") + name + "=\"";
    addNumber(text, value);
    return text + '"';
}

std::string words(const char* style, double x, double y, const std::string& text) {
    return std::string("<text class=\"") + style + '"' + at("x", x) + at("y", y) + '>' + xml(text) +
           "</text>";
}

bool overlap(const Area& a, const Area& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Lines of at most so many characters.
std::vector<std::string> wrapped(const std::string& text, std::size_t width) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (text.size() - begin > width) {
        std::size_t cut = text.rfind(' ', begin + width);
        if (cut == std::string::npos || cut <= begin) break;
        lines.push_back(text.substr(begin, cut - begin));
        begin = cut + 1;
    }
    lines.push_back(text.substr(begin));
    return lines;
}

/// What is wrong with a group, in lines for the legend.
std::vector<std::string> reasonOf(const inspection::Group& group) {
    constexpr std::size_t kWidth = 42;
    if (isWhole(group)) return {};
    const std::string reason = host::toUtf8(host::shortened(host::fromUtf8(group.reason)));
    return wrapped(reason + "; " + group.outlook, kWidth);
}

}  // namespace

GroupFrames::GroupFrames(Area legend, Area canvas,
                         const std::vector<const inspection::Group*>& groups)
    : m_legend(legend), m_canvas(canvas), m_rows(groups.size(), {0, 0}) {
    m_legend.bottom = legend.top;
    for (const bool whole : {false, true}) {
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (isWhole(*groups[i]) != whole) continue;
            const double height =
                kRowHeight + kReasonHeight * static_cast<double>(reasonOf(*groups[i]).size());
            if (m_legend.bottom + height <= legend.bottom)
                m_legend.bottom += m_rows[i].height = height;
            else
                ++m_unlisted;
        }
    }
    double top = legend.top;
    for (Row& row : m_rows) {
        row.top = top;
        top += row.height;
    }
}

std::string GroupFrames::open(std::size_t number, const inspection::Group& group,
                              const std::vector<Spot>& spots) {
    std::string svg = "<g class=\"g " + styleOf(number, group) + "\" id=\"group" +
                      std::to_string(number) + "\" tabindex=\"0\">\n";
    const std::vector<Spot> corners = hull(spots);
    m_hasHull = !corners.empty();
    if (!m_hasHull) return svg;
    m_top = *std::min_element(corners.begin(), corners.end(),
                              [](const Spot& p, const Spot& q) { return p.y < q.y; });
    std::string data = "M";
    for (const Spot& corner : corners) {
        if (data.size() > 1) data += 'L';
        addSpot(data, corner);
    }
    data += 'z';
    svg += "<path class=\"hull\" d=\"" + data + "\"/>";
    if (!isWhole(group)) svg += "<path class=\"rim\" d=\"" + data + "\"/>";
    return svg + "\n";
}

std::string GroupFrames::close(std::size_t number, const inspection::Group& group) {
    m_labels += label(number, group);
    return legendRow(number, group) + "</g>\n";
}

std::string GroupFrames::label(std::size_t number, const inspection::Group& group) {
    if (!m_hasHull || m_taken.size() == kMostLabels) return {};
    if (isWhole(group) && m_rows.size() > kAnyLabels) return {};
    std::string text = std::to_string(number);
    if (m_rows.size() <= kFullLabels) text += " \u00b7 " + membersOf(group);
    if (!isWhole(group)) text += std::string(", ") + nameOf(group.state);
    const double width = kLabelCharacter * static_cast<double>(text.size()) + 12;
    constexpr double kAbove = 15;
    Area area{std::clamp(m_top.x - width / 2, m_canvas.left,
                         std::max(m_canvas.left, m_canvas.right - width)),
              std::max(m_top.y - kAbove - kLabelHeight / 2, m_canvas.top), 0, 0};
    area.right = area.left + width;
    area.bottom = area.top + kLabelHeight;
    for (std::size_t i = 0, moves = 0; i < m_taken.size() && moves < 40; ++i) {
        if (!overlap(area, m_taken[i])) continue;
        const double down = m_taken[i].bottom + 2 - area.top;
        area.top += down;
        area.bottom += down;
        i = static_cast<std::size_t>(-1);
        ++moves;
    }
    m_taken.push_back(area);
    return "<g class=\"tag " + styleOf(number, group) + "\"><rect" + at("x", area.left) +
           at("y", area.top) + at("width", width) + at("height", kLabelHeight) + " rx=\"9\"/>" +
           words("", area.left + 6, area.top + 13, text) + "</g>\n";
}

std::string GroupFrames::legendRow(std::size_t number, const inspection::Group& group) {
    const auto [top, height] = m_rows[number - 1];
    if (height == 0) return {};
    const std::vector<std::string> reason = reasonOf(group);
    const double text = m_legend.left + 26;
    std::string svg = "<g class=\"row\"><rect" + at("x", m_legend.left) + at("y", top) +
                      at("width", m_legend.right - m_legend.left) + at("height", height) +
                      " rx=\"4\"/><circle class=\"dot\"" + at("cx", m_legend.left + 13) +
                      at("cy", top + 10) + " r=\"5\"/>";
    const std::string name = std::to_string(number) + " \u00b7 " + membersOf(group);
    svg += words("", text, top + 14, name);
    svg += words("small", text + kLabelCharacter * static_cast<double>(name.size()) + 4, top + 14,
                 std::string(nameOf(group.state)) + ", " + group.begin + " to " + group.end);
    for (std::size_t i = 0; i < reason.size(); ++i)
        svg += words("why", text, top + 14 + kReasonHeight * static_cast<double>(i + 1), reason[i]);
    return svg + "</g>\n";
}

}  // namespace picture
