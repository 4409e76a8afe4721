// Paths and words by their style, collected from one entity or from many.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "picture/paths.h"

namespace picture {

/// What is filled comes out below strokes and these below words.
class StrokePool {
  public:
    explicit StrokePool(const View& view) : m_view(view) {}

    /// Paths with these style classes; valid until the next call.
    PathData& strokes(const std::string& style) { return find(m_strokes, style); }
    PathData& areas(const std::string& style) { return find(m_areas, style); }
    /// Elements above all paths.
    std::string& words() { return m_words; }
    /// Where an element below all strokes goes.
    std::string& below() { return m_below; }
    /// Appends everything and is empty afterwards.
    void flush(std::string& svg);
    std::size_t size() const { return m_below.size() + m_done.size() + m_words.size(); }

  private:
    struct Entry {
        std::string style;
        PathData data;
    };
    struct Layer {
        std::vector<Entry> entries;  ///< those behind the used ones keep their memory
        std::size_t used = 0;
        std::unordered_map<std::string, std::size_t> places;  ///< filled when there are many
    };
    PathData& find(Layer& layer, const std::string& style);
    void write(std::string& svg, Layer& layer);
    static void write(std::string& svg, Entry& entry);

    const View& m_view;
    Layer m_strokes, m_areas;
    std::string m_below, m_done, m_words;
};

/// Appends the start of an element with style classes, without its closing bracket.
void openElement(std::string& svg, const char* element, const std::string& style);
/// Style classes of both.
std::string joined(const std::string& a, const std::string& b);

}  // namespace picture
