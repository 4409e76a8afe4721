// Browsers draw a few long paths much faster than many short ones, but none as long as a drawing.
#include "picture/stroke_pool.h"

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

PathData& StrokePool::find(std::vector<Entry>& entries, std::size_t& used,
                           const std::string& style) {
    for (std::size_t i = used; i-- > 0;) {
        if (entries[i].style != style) continue;
        if (entries[i].data.size() > kLongest)
            write(&entries == &m_areas ? m_below : m_done, entries[i]);
        return entries[i].data;
    }
    if (used == entries.size()) entries.push_back({style, PathData(m_view)});
    entries[used].style = style;
    return entries[used++].data;
}

void StrokePool::flush(std::string& svg) {
    svg += m_below;
    for (std::size_t i = 0; i < m_areasUsed; ++i)
        write(svg, m_areas[i]);
    svg += m_done;
    for (std::size_t i = 0; i < m_strokesUsed; ++i)
        write(svg, m_strokes[i]);
    svg += m_words;
    m_below.clear();
    m_done.clear();
    m_words.clear();
    m_areasUsed = m_strokesUsed = 0;
}

}  // namespace picture
