// One entity: its strokes, areas, words and frames, with a title that names it.
#include "picture/entity_writer.h"

#include <cmath>

#include "picture/plain_text.h"

namespace picture {
namespace {

using host::Outline;
using host::OutlinePart;
using host::Vec;
using host::Writing;

/// Height of capitals and mean width of a character, as parts of the size of common fonts.
constexpr double kCapital = 0.72, kCharacter = 0.55;
constexpr double kLineDistance = 5.0 / 3;
/// References with more parts than this are looked at when a picture grows large.
constexpr std::size_t kSimple = 8;

/// Everything that stands at the end of an outline, as a part behind the last one.
OutlinePart endOf(const Outline& outline) {
    return {nullptr,
            {},
            outline.lines.size(),
            outline.arcs.size(),
            outline.areas.size(),
            outline.writings.size()};
}

double flatLength(const Vec& v) { return std::hypot(v.x, v.y); }

void open(std::string& svg, const char* element, const std::string& style) {
    svg += '<';
    svg += element;
    if (!style.empty()) svg += " class=\"" + style + '"';
}

void addPath(std::string& svg, const std::string& data, const std::string& style) {
    if (data.empty()) return;
    open(svg, "path", style);
    svg += " d=\"" + data + "\"/>";
}

std::string joined(const std::string& a, const std::string& b) {
    return a.empty() ? b : b.empty() ? a : a + ' ' + b;
}

bool isWriting(const Outline& outline, const OutlinePart& part, std::size_t end, std::size_t area) {
    for (std::size_t i = part.writings; i < end; ++i) {
        if (outline.writings[i].area == area) return true;
    }
    return false;
}

/// "matrix(...)" or, for upright words, " x= y=".
std::string placed(const Spot& at, const Vec& along, const Vec& up) {
    std::string text;
    const Vec a = along * (1 / flatLength(along)), b = up * (1 / flatLength(up));
    constexpr double kStraight = 1e-4;
    if (std::fabs(a.y) < kStraight && std::fabs(b.x) < kStraight && a.x > 0 && b.y > 0) {
        text = " x=\"";
        addNumber(text, at.x);
        text += "\" y=\"";
        addNumber(text, at.y);
        return text + '"';
    }
    char turn[96];
    std::snprintf(turn, sizeof turn, " transform=\"matrix(%.4g %.4g %.4g %.4g ", a.x, -a.y, -b.x,
                  b.y);
    text = turn;
    addSpot(text, at);
    return text + ")\"";
}

}  // namespace

void EntityWriter::write(std::string& svg, const Shown& shown, Role role, const std::string& note) {
    const std::string title = "<title>" + titleOf(shown, note) + "</title>";
    std::string body;
    const bool crowded = shown.parts.size() > kSimple && svg.size() > m_mostBytes;
    if (crowded) {
        const host::Box& box = shown.bounds;
        writeFrame(body,
                   {{box.left, box.bottom, 0},
                    {box.right, box.bottom, 0},
                    {box.right, box.top, 0},
                    {box.left, box.top, 0}},
                   "",
                   role == Role::Plain
                       ? m_inks.colourClass(*shown.entity, shown.parts[0].layer, *shown.entity)
                       : "");
        ++m_framed;
    } else {
        writeParts(body, shown, role);
    }
    if (body.empty()) return;
    const bool single =
        body.compare(body.size() - 2, 2, "/>") == 0 && body.find('<', 1) == std::string::npos;
    if (role == Role::Plain && single) {  // <path .../> becomes <path ...><title/></path>
        body.resize(body.size() - 2);
        svg += body + '>' + title + "</path>\n";
        return;
    }
    svg += role == Role::Plain
               ? "<g>"
               : "<g class=\"m\" id=\"h" + host::formatHandle(shown.entity->handle) + "\">";
    svg += title + body + "</g>\n";
}

std::string EntityWriter::titleOf(const Shown& shown, const std::string& note) const {
    const host::OwnTags tags(shown.entity->tags());
    const std::string_view type = host::trimmed(shown.entity->type());
    std::string title = xml(type) + ' ' + host::formatHandle(shown.entity->handle);
    if (type == "INSERT") title += ", block " + xml(m_store.decode(tags.text(2)));
    return title + ", layer " + xml(m_store.decode(tags.text(8, "0"))) + note;
}

void EntityWriter::writeParts(std::string& svg, const Shown& shown, Role role) {
    const Outline& outline = shown.outline;
    PathData strokes(m_view), areas(m_view);
    std::string style;  // of what is collected in the two
    std::string wide;   // all of it once more, to point at
    const auto flush = [&] {
        const std::string line = strokes.take(), filled = areas.take();
        addPath(svg, line, style);
        addPath(svg, filled, joined("f", style));
        if (role == Role::WideMember) wide += line + filled;
    };
    for (std::size_t i = 0; i < shown.parts.size(); ++i) {
        const OutlinePart& part = shown.parts[i];
        const OutlinePart end = i + 1 < shown.parts.size() ? shown.parts[i + 1] : endOf(outline);
        const std::string_view type = host::trimmed(part.source->type());
        if (!host::hasForm(type)) continue;
        std::string own = m_inks.weightClass(*part.source, part.layer);
        if (role == Role::Plain)
            own = joined(m_inks.colourClass(*part.source, part.layer, *shown.entity), own);
        if (type == "HATCH") own = joined("h", own);
        if (type == "POINT") own = joined("p", own);
        if (own != style) flush();
        style = own;
        for (std::size_t k = part.lines; k < end.lines; ++k)
            strokes.line(outline.lines[k]);
        for (std::size_t k = part.arcs; k < end.arcs; ++k)
            strokes.arc(outline.arcs[k]);
        for (std::size_t k = part.areas; k < end.areas; ++k) {
            if (!isWriting(outline, part, end.writings, k)) areas.area(outline.areas[k]);
        }
        if (part.writings != end.writings) flush();
        for (std::size_t k = part.writings; k < end.writings; ++k)
            writeWriting(svg, outline, outline.writings[k], style);
    }
    flush();
    for (const Frame& frame : shown.frames) {
        const std::string own =
            role == Role::Plain
                ? m_inks.colourClass(*frame.source,
                                     host::OwnTags(frame.source->tags()).text(8, "0"),
                                     *shown.entity)
                : "";
        writeFrame(svg, frame.corners, std::string(host::trimmed(frame.source->type())), own);
    }
    if (!wide.empty()) svg = "<path class=\"hit\" d=\"" + wide + "\"/>" + svg;
}

void EntityWriter::writeWriting(std::string& svg, const Outline& outline, const Writing& writing,
                                const std::string& style) const {
    const std::vector<Vec>& box = outline.areas[writing.area];
    const Vec along = box[1] - box[0], up = box[3] - box[0];
    const double width = flatLength(along), tall = flatLength(up);
    if (!(width > 0) || !(tall > 0)) return;
    const double line = tall * writing.line;
    std::vector<std::wstring> lines;
    if (writing.isParagraph) {
        const double characters = std::min(1e6, width / (kCharacter * line));
        lines = linesOfParagraphs(writing.words, static_cast<std::size_t>(characters) + 1);
    } else {
        lines = {singleLine(writing.words)};
    }
    const double size = line * m_view.scale;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].find_first_not_of(L" \u00a0") == std::wstring::npos) continue;
        const double below = line * (1 + static_cast<double>(i) * kLineDistance);
        const Vec base = writing.isParagraph ? box[3] - up * (below / tall) : box[0];
        open(svg, "text", style);
        svg += placed(m_view.spot(base + along * writing.anchor), along, up) + " font-size=\"";
        addNumber(svg, std::max(size / kCapital, 0.01));
        svg += '"';
        if (writing.anchor > 0)
            svg += writing.anchor < 1 ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        if (writing.fitted) {
            svg += " lengthAdjust=\"spacingAndGlyphs\" textLength=\"";
            addNumber(svg, width * m_view.scale);
            svg += '"';
        }
        svg += '>' + xml(lines[i]) + "</text>";
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
    if (name.empty() || high.x - low.x < kNameSize * kCharacter * static_cast<double>(name.size()))
        return;
    open(svg, "text", joined("note", style));
    svg += " text-anchor=\"middle\" x=\"";
    addNumber(svg, (low.x + high.x) / 2);
    svg += "\" y=\"";
    addNumber(svg, (low.y + high.y) / 2 + kNameSize / 3);
    svg += "\">" + xml(name) + "</text>";
}

}  // namespace picture
