// Frames, labels and the legend.
#include "picture/svg/group_frames.h"

#include <algorithm>

#include "picture/svg/style.h"

namespace picture {
namespace {

constexpr double kRowHeight = 20, kLineHeight = 15, kLabelHeight = 18;
constexpr double kLabelCharacter = 6.9;  ///< mean width in a text of 12 pixels
constexpr std::size_t kLegendCharacters = 44;
/// With more groups than these, labels do not count members; those of whole groups are left out.
constexpr std::size_t kFullLabels = 40, kAnyLabels = 400, kMostLabels = 2000;

std::string membersOf(const inspection::Group& group) {
    return host::amount(group.members.size(), "member", "members");
}

bool isWhole(const inspection::Group& group) { return group.state == inspection::State::Whole; }

std::string groupStyle(const Numbered& one) {
    return "q" + std::to_string((one.number - 1) % kGroupColours) +
           (isWhole(*one.group) ? "" : " bad");
}

/// Lines of at most so many characters.
std::vector<std::string> wrappedAt(const std::string& text, std::size_t width) {
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
    constexpr std::size_t kMostText = 200;
    if (isWhole(group)) return {};
    return wrappedAt(shortened(group.reason + "; " + group.outlook, kMostText), kLegendCharacters);
}

/// "3 LINE, 1 CIRCLE", or the names alone; the first ones of many.
std::string census(const inspection::Group& group, std::string inspection::Entity::*field,
                   bool counted) {
    std::vector<std::pair<const std::string*, int>> found;
    for (const inspection::Entity& member : group.members) {
        const auto same = std::find_if(found.begin(), found.end(), [&](const auto& each) {
            return *each.first == member.*field;
        });
        if (same != found.end())
            ++same->second;
        else if (found.size() <= kLegendCharacters)  // more than are shown
            found.emplace_back(&(member.*field), 1);
    }
    std::string text;
    for (const auto& [name, count] : found)
        text += (text.empty() ? "" : ", ") + (counted ? std::to_string(count) + ' ' : "") + *name;
    return text;
}

/// Types and layers, in lines for the legend.
std::vector<std::string> contentOf(const inspection::Group& group) {
    if (group.members.empty()) return {};
    const std::string text = shortened(census(group, &inspection::Entity::type, true) + " on " +
                                           census(group, &inspection::Entity::layer, false),
                                       2 * kLegendCharacters);
    return wrappedAt(text, kLegendCharacters);
}

double heightOf(const inspection::Group& group) {
    return kRowHeight +
           kLineHeight * static_cast<double>(contentOf(group).size() + reasonOf(group).size());
}

}  // namespace

GroupFrames::GroupFrames(Area legend, LabelPlaces& places, const std::vector<Numbered>& groups)
    : m_legend(legend), m_places(places), m_count(groups.size()), m_rows(groups.size(), {0, 0}) {
    m_legend.bottom = legend.top;
    for (const bool whole : {false, true}) {
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (isWhole(*groups[i].group) != whole) continue;
            const double height = heightOf(*groups[i].group);
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

std::string GroupFrames::open(const Numbered& one) {
    return "<g class=\"g " + groupStyle(one) + "\" id=\"group" + std::to_string(one.number) +
           "\" tabindex=\"0\">\n";
}

std::string GroupFrames::close(const Numbered& one, const Area* frame) {
    std::string svg;
    if (frame != nullptr) {
        svg = "<rect class=\"frame\"";
        addAttribute(svg, "x", frame->left);
        addAttribute(svg, "y", frame->top);
        addAttribute(svg, "width", frame->right - frame->left);
        addAttribute(svg, "height", frame->bottom - frame->top);
        svg += "/>\n";
        m_labels += label(one, *frame);
    }
    return svg + legendRow(one) + "</g>\n";
}

std::string GroupFrames::label(const Numbered& one, const Area& frame) {
    if (m_labelled == kMostLabels || (isWhole(*one.group) && m_count > kAnyLabels)) return {};
    std::string text = std::to_string(one.number);
    if (m_count <= kFullLabels) text += " \u00b7 " + membersOf(*one.group);
    if (!isWhole(*one.group)) text += std::string(", ") + nameOf(one.group->state);
    const double width = kLabelCharacter * static_cast<double>(text.size()) + 12;
    const Area area = m_places.place(width, kLabelHeight, frame);
    ++m_labelled;
    std::string svg = "<g class=\"tag " + groupStyle(one) + "\"><rect";
    addAttribute(svg, "x", area.left);
    addAttribute(svg, "y", area.top);
    addAttribute(svg, "width", width);
    addAttribute(svg, "height", kLabelHeight);
    return svg + " rx=\"9\"/>" + sheetText("", area.left + 6, area.top + 13, text) + "</g>\n";
}

std::string GroupFrames::legendRow(const Numbered& one) {
    const auto [top, height] = m_rows[m_closed++];
    if (height == 0) return {};
    const inspection::Group& group = *one.group;
    const double text = m_legend.left + 26;
    std::string svg = "<g class=\"row\"><rect";
    addAttribute(svg, "x", m_legend.left);
    addAttribute(svg, "y", top);
    addAttribute(svg, "width", m_legend.right - m_legend.left);
    addAttribute(svg, "height", height);
    svg += " rx=\"4\"/><circle class=\"dot\"";
    addAttribute(svg, "cx", m_legend.left + 13);
    addAttribute(svg, "cy", top + 10);
    svg += " r=\"5\"/>";
    const std::string name = std::to_string(one.number) + " \u00b7 " + membersOf(group);
    svg += sheetText("", text, top + 14, name);
    svg +=
        sheetText("small", text + kLabelCharacter * static_cast<double>(name.size()) + 4, top + 14,
                  std::string(nameOf(group.state)) + ", " + group.begin + " to " + group.end);
    double line = top + 14;
    for (const std::string& content : contentOf(group))
        svg += sheetText("small", text, line += kLineHeight, content);
    for (const std::string& reason : reasonOf(group))
        svg += sheetText("why", text, line += kLineHeight, reason);
    return svg + "</g>\n";
}

}  // namespace picture
