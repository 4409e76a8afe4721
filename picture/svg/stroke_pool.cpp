// Browsers draw a few long paths much faster than many short ones, but none as long as a drawing.
#include "picture/svg/stroke_pool.h"

namespace picture {
namespace {

constexpr std::size_t kLongest = 60000;  // bytes of a path

}  // namespace

void openElement(std::string& svg, const char* element, const std::string& style) {
    svg += '<';
    svg += element;
    if (style.empty()) return;
    svg += " class=\"";
    svg += style;
    svg += '"';
}

std::string joined(const std::string& a, const std::string& b) {
    return a.empty() ? b : b.empty() ? a : a + ' ' + b;
}

void StrokePool::write(std::string& svg, Entry& entry) {
    if (entry.data.empty()) return;
    openElement(svg, "path", entry.style);
    svg += " d=\"";
    svg += entry.data.data();
    svg += "\"/>";
    entry.data.clear();
}

PathData& StrokePool::find(Layer& layer, const std::string& style) {
    constexpr std::size_t kFew = 8;  // that are looked through faster than looked up
    std::size_t place = layer.used;
    for (std::size_t i = layer.used; i-- > 0 && layer.used <= kFew && place == layer.used;) {
        if (layer.entries[i].style == style) place = i;
    }
    if (layer.used > kFew) {
        for (std::size_t i = layer.places.size(); i < layer.used; ++i)
            layer.places.emplace(layer.entries[i].style, i);
        const auto found = layer.places.find(style);
        if (found != layer.places.end()) place = found->second;
    }
    if (place == layer.entries.size()) layer.entries.push_back({style, PathData(m_view)});
    Entry& entry = layer.entries[place];
    if (place == layer.used) {
        entry.style = style;
        ++layer.used;
    } else if (entry.data.size() > kLongest) {
        write(&layer == &m_areas ? m_below : m_done, entry);
    }
    return entry.data;
}

void StrokePool::write(std::string& svg, Layer& layer) {
    for (std::size_t i = 0; i < layer.used; ++i)
        write(svg, layer.entries[i]);
    layer.used = 0;
    layer.places.clear();
}

void StrokePool::flush(std::string& svg) {
    svg += m_below;
    write(svg, m_areas);
    svg += m_done;
    write(svg, m_strokes);
    svg += m_words;
    m_below.clear();
    m_done.clear();
    m_words.clear();
}

}  // namespace picture
