// Writes entities as SVG: each by itself with a title, or many in shared paths.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>

#include "picture/hatching.h"
#include "picture/inks.h"
#include "picture/scene.h"
#include "picture/svg/sheet.h"
#include "picture/svg/stroke_pool.h"

namespace picture {

/// How an entity is written.
enum class Role {
    Plain,   ///< in the colours of its layers
    Member,  ///< in the colour of its group, with its handle as id
};

/// Sizes of a picture in bytes.
struct PictureLimits {
    std::size_t large;  ///< behind it block references with many parts become frames
    std::size_t most;   ///< what would go beyond it becomes a frame, or is left out at last
};

class EntityWriter {
  public:
    EntityWriter(const host::Store& store, const Scene& scene, const Sheet& sheet, Inks& inks,
                 PictureLimits limits);

    /// Appends the entity by itself; `note` goes behind type, handle and layer in its title.
    void write(std::string& svg, const Shown& shown, Role role, const std::string& note);
    /// Collects it, without a title, in paths that it shares with others of its inks.
    void collect(const Shown& shown, Role role, std::size_t written);
    /// Makes room for bytes of words that will be collected.
    void expectWords(std::size_t bytes) { m_pool.words().reserve(bytes); }
    /// Appends what was collected.
    void writeCollected(std::string& svg) { m_pool.flush(svg); }
    /// Rules of the style classes that it gave out.
    std::string style() const;
    /// Number of entities that became frames, and of those that were left out.
    long framed() const { return m_framed; }
    long omitted() const { return m_omitted; }

  private:
    const std::string& shownName(std::string_view name);
    void writeTitle(std::string& svg, const Shown& shown, const Look& look,
                    const std::string& note);
    std::string styleOf(const Shown& shown, const host::OutlinePart& part, const Look& look,
                        Role role);
    void collectPart(std::size_t index, const std::string& style);
    void collectStrokes(const host::OutlineMark& from, const host::OutlineMark& end,
                        const std::string& style);
    void collectHatch(const host::OutlinePart& part, const host::OutlineMark& end,
                      const std::string& style);
    void collectParts(const Shown& shown, const Look& look, Role role);
    const std::string& sizeClass(double size);
    void collectWords(const host::Writing& writing, const std::string& style);
    void collectFrame(const std::vector<host::Vec>& corners, const std::string& name,
                      const std::string& style);
    void collectFrameAround(const Shown& shown, Role role);

    const host::Store& m_store;
    const Scene& m_scene;
    const Sheet& m_sheet;
    Inks& m_inks;
    PictureLimits m_limits;
    StrokePool m_pool;
    Hatching m_hatching;
    std::unordered_map<std::string_view, std::string> m_names;  ///< of the drawing, for XML
    std::map<std::string, std::string> m_sizes;                 ///< of words, with their classes
    double m_lastSize = -1;
    const std::string* m_lastClass = nullptr;
    long m_framed = 0;
    long m_omitted = 0;
};

}  // namespace picture
