// One entity: its strokes, areas, words and frames, with a title that names it.
#include "picture/svg/entity_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/tags/tag_values.h"
#include "picture/svg/xml_text.h"
#include "picture/written_lines.h"

namespace picture {
namespace {

using host::OutlineMark;
using host::OutlinePart;
using host::Vec;

/// References with more parts than this are looked at when a picture grows large.
constexpr std::size_t kSimpleReference = 8;
/// So many bytes make a stroke of a hatch worth it.
constexpr std::size_t kBytesOfHatchStroke = 60;

/// Appends " transform=matrix(...)" or, for upright words as wide as they are, " x= y=".
void addPlace(std::string& text, const WrittenLine& line, int decimals) {
    constexpr double kStraight = 1e-4;
    const Vec &a = line.along, &b = line.up;
    if (std::fabs(a.y) < kStraight && std::fabs(b.x) < kStraight &&
        std::fabs(a.x - 1) < kStraight && b.y > 0) {
        addAttribute(text, "x", line.at.x, decimals);
        return addAttribute(text, "y", line.at.y, decimals);
    }
    const auto clean = [](double value) { return std::fabs(value) < 1e-9 ? 0.0 : value; };
    char turn[96];
    std::snprintf(turn, sizeof turn, " transform=\"matrix(%.4g %.4g %.4g %.4g ", clean(a.x),
                  clean(-a.y), clean(-b.x), clean(b.y));
    text += turn;
    addSpot(text, line.at, decimals);
    text += ")\"";
}

}  // namespace

EntityWriter::EntityWriter(const host::Store& store, const Scene& scene, const Sheet& sheet,
                           Inks& inks, PictureLimits limits)
    : m_store(store),
      m_scene(scene),
      m_sheet(sheet),
      m_inks(inks),
      m_limits(limits),
      m_pool(sheet.view),
      m_hatching(static_cast<long long>(limits.large / kBytesOfHatchStroke)) {}

void EntityWriter::write(std::string& svg, const Shown& shown, Role role, const std::string& note) {
    const std::size_t start = svg.size();
    svg += role == Role::Plain
               ? "<g>"
               : "<g class=\"m\" id=\"h" + host::formatHandle(shown.entity->handle) + "\">";
    writeTitle(svg, shown, Look(*shown.entity), note);
    const std::size_t empty = svg.size();
    const long framedBefore = m_framed;
    collect(shown, role, svg.size());
    m_pool.flush(svg);
    if (svg.size() > m_limits.most) {
        svg.resize(empty);
        collectFrameAround(shown, role);
        m_pool.flush(svg);
        m_framed = framedBefore + 1;
    }
    if (svg.size() > m_limits.most) {
        svg.resize(start);
        m_framed = framedBefore;
        ++m_omitted;
    } else if (svg.size() == empty)
        svg.resize(start);
    else
        svg += "</g>\n";
}

void EntityWriter::collect(const Shown& shown, Role role, std::size_t written) {
    const std::size_t size = written + m_pool.size();
    if (size > m_limits.most) {
        ++m_omitted;
    } else if (shown.lastPart - shown.firstPart > kSimpleReference && size > m_limits.large) {
        collectFrameAround(shown, role);
        ++m_framed;
    } else {
        collectParts(shown, Look(*shown.entity), role);
    }
}

void EntityWriter::collectFrameAround(const Shown& shown, Role role) {
    const Look look(*shown.entity);
    collectFrame(cornersOf(shown.bounds), "",
                 role == Role::Plain ? m_inks.colourClass(look, look.layer, look) : "");
}

const std::string& EntityWriter::shownName(std::string_view name) {
    const auto [place, isNew] = m_names.try_emplace(name);
    if (isNew) place->second = xml(host::shortened(m_store.decode(name)));
    return place->second;
}

void EntityWriter::writeTitle(std::string& svg, const Shown& shown, const Look& look,
                              const std::string& note) {
    const std::string_view type = shown.entity->type();
    svg += "<title>";
    svg += shownName(type);
    svg += ' ';
    svg += host::formatHandle(shown.entity->handle);
    if (type == "INSERT") {
        svg += ", block ";
        svg += shownName(host::textTag(shown.entity->tags(), 2));
    }
    svg += ", layer ";
    svg += shownName(look.layer);
    svg += note;
    svg += "</title>";
}

void EntityWriter::collectParts(const Shown& shown, const Look& look, Role role) {
    for (std::size_t i = shown.firstPart; i < shown.lastPart; ++i) {
        const OutlinePart& part = m_scene.parts[i];
        if (part.hasForm) collectPart(i, styleOf(shown, part, look, role));
    }
    for (std::size_t i = shown.firstFrame; i < shown.lastFrame; ++i) {
        const Frame& frame = m_scene.frames[i];
        const Look inner(*frame.source);
        collectFrame(frame.corners, std::string(frame.source->type()),
                     role == Role::Plain ? m_inks.colourClass(inner, inner.layer, look) : "");
    }
}

void EntityWriter::collectPart(std::size_t index, const std::string& style) {
    const host::Outline& outline = m_scene.outline;
    const OutlinePart& part = m_scene.parts[index];
    const OutlineMark& from = part.from;
    const OutlineMark end = m_scene.endOf(index);
    if (part.type == "HATCH") return collectHatch(part, end, style);
    collectStrokes(from, end, style);
    for (std::size_t k = from.areas; k < end.areas; ++k) {
        if (isWords(outline, from, end, k)) continue;
        m_pool.areas(joined(fillsWithInk(part.type) ? "f a" : "f", style)).area(outline.areas[k]);
    }
    for (std::size_t k = from.writings; k < end.writings; ++k)
        collectWords(outline.writings[k], style);
}

void EntityWriter::collectStrokes(const OutlineMark& from, const OutlineMark& end,
                                  const std::string& style) {
    const auto pathOf = [&](double width) -> PathData& {
        return m_pool.strokes(width > 0 ? joined(joined("b", m_inks.widthClass(width)), style)
                                        : style);
    };
    addStrokesByWidth(pathOf, m_scene.outline, from, end);
}

/// What is filled has to be a path of its own: with others it would cut holes.
void EntityWriter::collectHatch(const OutlinePart& part, const OutlineMark& end,
                                const std::string& style) {
    const bool isSolid = host::integerTag(part.source->tags(), 70) == 1;
    PathData boundary(m_sheet.view);
    addStrokes(boundary, m_scene.outline, part.from, end);
    if (boundary.empty()) return;
    const bool hasLines =
        !isSolid && m_hatching.add(m_pool.strokes(joined("p", style)), m_scene.outline, part.from,
                                   end, m_sheet.pixel);
    std::string& svg = m_pool.below();
    openElement(svg, "path", joined(isSolid ? "h s" : hasLines ? "h n" : "h", style));
    svg += " d=\"" + boundary.data() + "\"/>";
}

std::string EntityWriter::styleOf(const Shown& shown, const OutlinePart& part, const Look& look,
                                  Role role) {
    const bool isMain = part.source == shown.entity;
    const Look inner = isMain ? look : Look(*part.source);
    const Look& own = isMain ? look : inner;
    std::string style = m_inks.weightClass(own, part.layer, look);
    if (role == Role::Plain) style = joined(m_inks.colourClass(own, part.layer, look), style);
    if (part.type == "POINT") return joined("o", style);
    if (part.type == "HATCH") return style;
    return joined(style, m_inks.dashClass(own, part.layer, look, part.scale, m_sheet.pixel));
}

void EntityWriter::collectWords(const host::Writing& writing, const std::string& style) {
    const int decimals = m_sheet.view.decimals;
    std::string& svg = m_pool.words();
    for (const WrittenLine& line :
         writtenLines(writing, m_scene.outline.areas[writing.area], m_sheet.view)) {
        openElement(svg, "text", joined(style, sizeClass(line.size)));
        addPlace(svg, line, decimals);
        if (line.anchor > 0)
            svg += line.anchor < 1 ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        if (line.fitted > 0) {
            svg += " lengthAdjust=\"spacingAndGlyphs\"";
            addAttribute(svg, "textLength", line.fitted, decimals);
        }
        svg += '>';
        addXml(svg, line.words);
        svg += "</text>";
    }
}

const std::string& EntityWriter::sizeClass(double size) {
    if (size == m_lastSize) return *m_lastClass;
    std::string text;
    addNumber(text, size, m_sheet.view.decimals);
    const auto [place, isNew] = m_sizes.try_emplace(text);
    if (isNew) place->second = "z" + std::to_string(m_sizes.size() - 1);
    m_lastSize = size;
    m_lastClass = &place->second;
    return place->second;
}

std::string EntityWriter::style() const {
    std::string rules;
    for (const auto& [size, name] : m_sizes)
        rules += "." + name + "{font-size:" + size + "px}";
    return rules;
}

void EntityWriter::collectFrame(const std::vector<Vec>& corners, const std::string& name,
                                const std::string& style) {
    constexpr double kLeast = 12, kNameSize = 9;  // pixels
    const host::Box box = host::boundsOf(corners);
    const Vec middle{(box.left + box.right) / 2, (box.bottom + box.top) / 2, 0};
    const double least = kLeast * m_sheet.pixel, half = least / 2, width = box.right - box.left;
    const bool isSmall = width < least && box.top - box.bottom < least;
    m_pool.strokes(joined("fr", style))
        .area(isSmall ? cornersOf(host::Box{middle.x - half, middle.y - half, middle.x + half,
                                            middle.y + half})
                      : corners);
    const double size = kNameSize * m_sheet.pixel;
    if (name.empty() || width < size * kCharacterWidth * static_cast<double>(name.size())) return;
    const Spot at = m_sheet.view.spot(middle - Vec{0, size / 3, 0});
    std::string& svg = m_pool.words();
    openElement(svg, "text", joined("note", style));
    svg += " text-anchor=\"middle\"";
    addAttribute(svg, "x", at.x, m_sheet.view.decimals);
    addAttribute(svg, "y", at.y, m_sheet.view.decimals);
    addAttribute(svg, "font-size", size, m_sheet.view.decimals);
    svg += ">" + xml(std::string_view(name)) + "</text>";
}

}  // namespace picture
