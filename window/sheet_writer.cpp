// From what entities show to JSON.
#include "window/sheet_writer.h"

#include <cstdio>

#include "host/text/text_codec.h"
#include "json/json.h"
#include "picture/written_lines.h"

namespace window {
namespace {

using host::OutlineMark;
using host::OutlinePart;
using picture::Look;
using picture::Shown;

void addNumbers(std::string& json, std::initializer_list<double> values) {
    char text[32];
    for (const double value : values) {
        std::snprintf(text, sizeof text, "%.6g,", value);
        json += text;
    }
}

}  // namespace

std::size_t Styles::numberOf(const Style& style) {
    return m_numbers.try_emplace(style, m_numbers.size()).first->second;
}

std::string Styles::listFrom(std::size_t first) const {
    std::map<std::size_t, const Style*> byNumber;
    for (const auto& [style, number] : m_numbers) {
        if (number >= first) byNumber[number] = &style;
    }
    std::string json = "[";
    for (const auto& [number, style] : byNumber) {
        json += json.size() > 1 ? ",[" : "[";
        json += '"' + picture::hex(picture::readableOnLight(style->colour)) + "\",\"" +
                picture::hex(picture::readableOnDark(style->colour)) + "\",";
        addNumbers(json, {style->width, style->fill / 100.0});
        if (style->dashes.empty()) {
            json += style->dashed ? '1' : '0';
        } else {
            std::string dashes;
            for (const double length : style->dashes)
                addNumbers(dashes, {length});
            dashes.back() = ']';
            json += '[' + dashes;
        }
        json += ',' + host::formatReal(style->broad) + ']';
    }
    return json + "]";
}

Styles::Style SheetWriter::styleOf(const Shown& shown, const OutlinePart& part, const Look& look) {
    const bool isMain = part.source == shown.entity;
    const Look inner = isMain ? look : Look(*part.source);
    Styles::Style style;
    style.colour = m_inks.colourOf(isMain ? look : inner, part.layer, look);
    style.width = picture::strokeWidth(m_inks.weightOf(inner, part.layer, look));
    if (part.type == "HATCH") {
        const auto solid = host::findTag(part.source->tags(), 70);
        style.width = 0.8;
        style.fill = solid && host::integerOf(solid->value) == 1 ? 40 : 10;
    }
    if (part.type == "POINT") style.width = 3;
    if (part.type == "POINT" || part.type == "HATCH") return style;
    style.dashes = m_inks.dashesOf(inner, part.layer, look, part.scale);
    for (double& length : style.dashes)
        length *= m_view.scale;
    return style;
}

void SheetWriter::flush(std::size_t style) {
    const std::string& data = m_path.data();
    if (!data.empty()) {
        m_paths += (m_paths.empty() ? "" : ",") + std::to_string(style) + ",\"" + data;
        // A canvas leaves out what has no length at all.
        m_paths += data.compare(data.size() - 2, 2, "h0") == 0 ? ".01\"" : "\"";
    }
    m_path.clear();
}

std::size_t SheetWriter::addStrokes(const Styles::Style& own, std::size_t style,
                                    const OutlineMark& from, const OutlineMark& end) {
    const auto pathOf = [&](double width) -> picture::PathData& {
        Styles::Style broad = own;
        broad.broad = width * m_view.scale;
        const std::size_t number = m_styles.numberOf(broad);
        if (number != style) flush(style);
        style = number;
        return m_path;
    };
    picture::addStrokesByWidth(pathOf, m_scene.outline, from, end);
    return style;
}

void SheetWriter::writeWords(const host::Writing& writing, std::size_t style) {
    const std::vector<host::Vec>& area = m_scene.outline.areas[writing.area];
    for (const picture::WrittenLine& line : picture::writtenLines(writing, area, m_view)) {
        m_words += (m_words.empty() ? "[" : ",[") + std::to_string(style) + ',';
        addNumbers(m_words, {line.along.x, -line.along.y, -line.up.x, line.up.y});
        picture::addNumber(m_words, line.at.x);
        m_words += ',';
        picture::addNumber(m_words, line.at.y);
        m_words += ',';
        addNumbers(m_words, {line.size, line.anchor, line.fitted});
        m_words += json::Value(host::toUtf8(line.words)).text() + ']';
    }
}

void SheetWriter::writeFrame(const picture::Frame& frame, std::size_t style) {
    for (std::size_t i = 0; i < frame.corners.size(); ++i)
        m_path.line({frame.corners[i], frame.corners[(i + 1) % frame.corners.size()]});
    flush(style);
}

void SheetWriter::writeParts(const Shown& shown, const Look& look) {
    const host::Outline& outline = m_scene.outline;
    std::size_t style = 0;  // of what is collected
    for (std::size_t i = shown.firstPart; i < shown.lastPart; ++i) {
        const OutlinePart& part = m_scene.parts[i];
        const OutlineMark& from = part.from;
        const OutlineMark end = m_scene.endOf(i);
        if (!part.hasForm) continue;
        const Styles::Style own = styleOf(shown, part, look);
        style = addStrokes(own, style, from, end);
        Styles::Style filled = own;
        filled.fill = picture::fillsWithInk(part.type) ? 100 : 80;
        filled.width = 0.4;
        for (std::size_t k = from.areas; k < end.areas; ++k) {
            if (picture::isWords(outline, from, end, k)) continue;
            flush(style);
            m_path.area(outline.areas[k]);
            flush(m_styles.numberOf(filled));
        }
        for (std::size_t k = from.writings; k < end.writings; ++k)
            writeWords(outline.writings[k], m_styles.numberOf(own));
    }
    flush(style);
    for (std::size_t i = shown.firstFrame; i < shown.lastFrame; ++i) {
        const picture::Frame& frame = m_scene.frames[i];
        const Look inner(*frame.source);
        writeFrame(frame,
                   m_styles.numberOf({m_inks.colourOf(inner, inner.layer, look), 0.9, 0, true}));
    }
}

void SheetWriter::write(std::string& json, const Shown& shown) {
    m_paths.clear();
    m_words.clear();
    writeParts(shown, Look(*shown.entity));
    const picture::Spot low = m_view.spot({shown.bounds.left, shown.bounds.top, 0});
    const picture::Spot high = m_view.spot({shown.bounds.right, shown.bounds.bottom, 0});
    json += "{\"h\":\"" + host::formatHandle(shown.entity->handle) + "\",\"b\":[";
    picture::addNumber(json, low.x);
    for (const double value : {low.y, high.x, high.y}) {
        json += ',';
        picture::addNumber(json, value);
    }
    json += ']';
    if (!m_paths.empty()) json += ",\"p\":[" + m_paths + ']';
    if (!m_words.empty()) json += ",\"t\":[" + m_words + ']';
    json += '}';
}

}  // namespace window
