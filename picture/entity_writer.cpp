// One entity: its strokes, areas, words and frames, with a title that names it.
#include "picture/entity_writer.h"

#include <cmath>

#include "host/tags/tag_values.h"
#include "host/text/text_codec.h"
#include "picture/plain_text.h"
#include "picture/written_lines.h"

namespace picture {
namespace {

using host::Outline;
using host::OutlineMark;
using host::OutlinePart;
using host::Vec;
using host::Writing;

/// References with more parts than this are looked at when a picture grows large.
constexpr std::size_t kSimple = 8;

void open(std::string& svg, const char* element, const std::string& style) {
    svg += '<';
    svg += element;
    if (style.empty()) return;
    svg += " class=\"";
    svg += style;
    svg += '"';
}

void addPath(std::string& svg, const std::string& data, const std::string& style) {
    if (data.empty()) return;
    open(svg, "path", style);
    svg += " d=\"";
    svg += data;
    svg += "\"/>";
}

std::string joined(const std::string& a, const std::string& b) {
    return a.empty() ? b : b.empty() ? a : a + ' ' + b;
}

/// Appends "matrix(...)" or, for upright words as wide as they are, " x= y=". `a` and `b` are where
/// the units along and across the words go.
void addPlace(std::string& text, const Spot& at, const Vec& a, const Vec& b) {
    constexpr double kStraight = 1e-4;
    if (std::fabs(a.y) < kStraight && std::fabs(b.x) < kStraight &&
        std::fabs(a.x - 1) < kStraight && b.y > 0) {
        text += " x=\"";
        addNumber(text, at.x);
        text += "\" y=\"";
        addNumber(text, at.y);
        text += '"';
        return;
    }
    char turn[96];
    std::snprintf(turn, sizeof turn, " transform=\"matrix(%.4g %.4g %.4g %.4g ", a.x, -a.y, -b.x,
                  b.y);
    text += turn;
    addSpot(text, at);
    text += ")\"";
}

}  // namespace

const std::string& XmlNames::of(const host::Store& store, std::string_view name) {
    const auto [place, isNew] = m_names.try_emplace(name);
    if (isNew) place->second = xml(host::shortened(store.decode(name)));
    return place->second;
}

void EntityWriter::write(std::string& svg, const Shown& shown, Role role, const std::string& note) {
    const std::size_t start = svg.size();
    const Look look(*shown.entity);
    svg += role == Role::Plain
               ? "<g>"
               : "<g class=\"m\" id=\"h" + host::formatHandle(shown.entity->handle) + "\">";
    writeTitle(svg, shown, look, note);
    const std::size_t empty = svg.size();
    bool framed = shown.lastPart - shown.firstPart > kSimple && svg.size() > m_limits.large;
    if (!framed) writeParts(svg, shown, look, role);
    framed = framed || svg.size() > m_limits.most;
    if (framed) {
        svg.resize(empty);
        writeFrameAround(svg, shown, look, role);
        ++m_framed;
    }
    if (svg.size() > m_limits.most) {
        svg.resize(start);
        --m_framed;
        ++m_omitted;
    } else if (svg.size() == empty)
        svg.resize(start);
    else
        svg += "</g>\n";
}

void EntityWriter::writeFrameAround(std::string& svg, const Shown& shown, const Look& look,
                                    Role role) {
    const host::Box& box = shown.bounds;
    writeFrame(svg,
               {{box.left, box.bottom, 0},
                {box.right, box.bottom, 0},
                {box.right, box.top, 0},
                {box.left, box.top, 0}},
               "", role == Role::Plain ? m_inks.colourClass(look, look.layer, look) : "");
}

void EntityWriter::writeTitle(std::string& svg, const Shown& shown, const Look& look,
                              const std::string& note) {
    const std::string_view type = shown.entity->type();
    svg += "<title>";
    svg += m_names.of(m_store, type);
    svg += ' ';
    svg += host::formatHandle(shown.entity->handle);
    if (type == "INSERT") {
        svg += ", block ";
        svg += m_names.of(m_store, host::textTag(shown.entity->tags(), 2));
    }
    svg += ", layer ";
    svg += m_names.of(m_store, look.layer);
    svg += note;
    svg += "</title>";
}

void EntityWriter::flush(std::string& svg, const std::string& style, std::string* wide) {
    addPath(svg, m_strokes.data(), style);
    addPath(svg, m_areas.data(), m_areas.data().empty() ? style : joined("f", style));
    if (wide != nullptr) *wide += m_strokes.data() + m_areas.data();
    m_strokes.clear();
    m_areas.clear();
}

void EntityWriter::writeParts(std::string& svg, const Shown& shown, const Look& look, Role role) {
    const Outline& outline = m_scene.outline;
    const std::size_t start = svg.size();
    std::string style;  // of what is collected
    std::string all;    // of it once more, to point at
    std::string* const wide = role == Role::WideMember ? &all : nullptr;
    for (std::size_t i = shown.firstPart; i < shown.lastPart; ++i) {
        const OutlinePart& part = m_scene.parts[i];
        const OutlineMark& from = part.from;
        const OutlineMark end = m_scene.endOf(i);
        if (!part.hasForm) continue;
        std::string own = styleOf(shown, part, look, role);
        if (own != style) flush(svg, style, wide);
        style.swap(own);
        addStrokes(m_strokes, outline, from, end);
        for (std::size_t k = from.areas; k < end.areas; ++k) {
            if (!isWords(outline, from, end, k)) m_areas.area(outline.areas[k]);
        }
        if (from.writings != end.writings) flush(svg, style, wide);
        for (std::size_t k = from.writings; k < end.writings; ++k)
            writeWriting(svg, outline.writings[k], style);
    }
    flush(svg, style, wide);
    for (std::size_t i = shown.firstFrame; i < shown.lastFrame; ++i) {
        const Frame& frame = m_scene.frames[i];
        const Look inner(*frame.source);
        writeFrame(svg, frame.corners, std::string(frame.source->type()),
                   role == Role::Plain ? m_inks.colourClass(inner, inner.layer, look) : "");
    }
    if (!all.empty()) svg.insert(start, "<path class=\"hit\" d=\"" + all + "\"/>");
}

std::string EntityWriter::styleOf(const Shown& shown, const OutlinePart& part, const Look& look,
                                  Role role) {
    const bool isMain = part.source == shown.entity;
    const Look inner = isMain ? look : Look(*part.source);
    std::string style = m_inks.weightClass(inner, part.layer);
    if (role == Role::Plain)
        style = joined(m_inks.colourClass(isMain ? look : inner, part.layer, look), style);
    if (part.type == "HATCH") {
        const bool solid = host::integerTag(part.source->tags(), 70) == 1;
        return joined(solid ? "h s" : "h", style);
    }
    return part.type == "POINT" ? joined("p", style) : style;
}

void EntityWriter::writeWriting(std::string& svg, const Writing& writing,
                                const std::string& style) const {
    for (const WrittenLine& line :
         writtenLines(writing, m_scene.outline.areas[writing.area], m_view)) {
        open(svg, "text", style);
        addPlace(svg, line.at, line.along, line.up);
        svg += " font-size=\"";
        addNumber(svg, line.size);
        svg += '"';
        if (line.anchor > 0)
            svg += line.anchor < 1 ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        if (line.fitted > 0) {
            svg += " lengthAdjust=\"spacingAndGlyphs\" textLength=\"";
            addNumber(svg, line.fitted);
            svg += '"';
        }
        svg += '>';
        svg += xml(line.words);
        svg += "</text>";
    }
}

void EntityWriter::writeFrame(std::string& svg, const std::vector<Vec>& corners,
                              const std::string& name, const std::string& style) const {
    constexpr double kLeast = 12;  // picture units that a frame measures at least
    constexpr double kNameSize = 9;
    Spot low = m_view.spot(corners[0]), high = low;
    for (const Vec& corner : corners) {
        const Spot spot = m_view.spot(corner);
        low = {std::min(low.x, spot.x), std::min(low.y, spot.y)};
        high = {std::max(high.x, spot.x), std::max(high.y, spot.y)};
    }
    std::string data = "M";
    if (high.x - low.x < kLeast && high.y - low.y < kLeast) {
        const Spot middle{(low.x + high.x) / 2, (low.y + high.y) / 2};
        addSpot(data, {middle.x - kLeast / 2, middle.y - kLeast / 2});
        data += "h12v12h-12z";
    } else {
        for (const Vec& corner : corners) {
            if (data.size() > 1) data += 'L';
            addSpot(data, m_view.spot(corner));
        }
        data += 'z';
    }
    addPath(svg, data, joined("fr", style));
    if (name.empty() ||
        high.x - low.x < kNameSize * kCharacterWidth * static_cast<double>(name.size()))
        return;
    open(svg, "text", joined("note", style));
    svg += " text-anchor=\"middle\" x=\"";
    addNumber(svg, (low.x + high.x) / 2);
    svg += "\" y=\"";
    addNumber(svg, (low.y + high.y) / 2 + kNameSize / 3);
    svg += "\">" + xml(name) + "</text>";
}

}  // namespace picture
