// Entities as the page draws them: paths, words and styles as JSON.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "host/store/store.h"
#include "picture/inks.h"
#include "picture/paths.h"
#include "picture/scene.h"

namespace window {

/// The styles that a page knows, by number. They stay as long as the page does.
class Styles {
  public:
    struct Style {
        picture::Rgb colour = 0;
        double width = 1;             ///< of strokes, in pixels
        int fill = 0;                 ///< how much of the colour areas take, in hundredths
        bool dashed = false;          ///< in pixels, as frames are
        double broad = 0;             ///< width of broad strokes, in units of the paths
        picture::Dashes dashes = {};  ///< in units of the paths
        bool operator<(const Style& other) const {
            return std::tie(colour, width, fill, dashed, broad, dashes) <
                   std::tie(other.colour, other.width, other.fill, other.dashed, other.broad,
                            other.dashes);
        }
    };
    std::size_t numberOf(const Style& style);
    std::size_t count() const { return m_numbers.size(); }
    /// JSON list of those from a number on: colour on light and on dark paper, width, fill, dashes
    /// (0 for none, 1 for those of frames, else a list), width of broad strokes.
    std::string listFrom(std::size_t first) const;

  private:
    std::map<Style, std::size_t> m_numbers;
};

/// Writes entities of a scene, which has to live as long.
class SheetWriter {
  public:
    SheetWriter(const host::Store& store, const picture::Scene& scene, const picture::View& view,
                Styles& styles)
        : m_scene(scene), m_view(view), m_styles(styles), m_inks(store), m_path(view) {}

    /// Appends {"h": handle, "b": [left, top, right, bottom], "p": [style, path data, ...],
    /// "t": [[style, matrix of four, x, y, size, anchor, fitted, words], ...]}, in picture units.
    void write(std::string& json, const picture::Shown& shown);

  private:
    void writeParts(const picture::Shown& shown, const picture::Look& look);
    /// Strokes of one width become paths of one style. Gives the style of the last ones, which are
    /// still collected.
    std::size_t addStrokes(const Styles::Style& own, std::size_t style,
                           const host::OutlineMark& from, const host::OutlineMark& end);
    void writeWords(const host::Writing& writing, std::size_t style);
    void writeFrame(const picture::Frame& frame, std::size_t style);
    void flush(std::size_t style);
    Styles::Style styleOf(const picture::Shown& shown, const host::OutlinePart& part,
                          const picture::Look& look);

    const picture::Scene& m_scene;
    const picture::View& m_view;
    Styles& m_styles;
    picture::Inks m_inks;
    picture::PathData m_path;      ///< with one style
    std::string m_paths, m_words;  ///< of the entity that is being written
};

}  // namespace window
