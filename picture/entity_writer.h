// Writes single entities as SVG.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "picture/inks.h"
#include "picture/paths.h"
#include "picture/scene.h"

namespace picture {

/// How an entity is written.
enum class Role {
    Plain,       ///< in the colours of its layers
    Member,      ///< in the colour of its group, with its handle as id
    WideMember,  ///< the same, and a wide unseen stroke makes it easy to point at
};

/// Names for XML, each made once.
class XmlNames {
  public:
    /// `name` is borrowed from the drawing's text.
    const std::string& of(const host::Store& store, std::string_view name);

  private:
    std::unordered_map<std::string_view, std::string> m_names;
};

/// Sizes of a picture in bytes.
struct PictureLimits {
    std::size_t large;  ///< behind it block references with many parts become frames
    std::size_t most;   ///< what would go beyond it becomes a frame, or is left out at last
};

class EntityWriter {
  public:
    EntityWriter(const host::Store& store, const Scene& scene, const View& view, Inks& inks,
                 PictureLimits limits)
        : m_store(store),
          m_scene(scene),
          m_view(view),
          m_inks(inks),
          m_limits(limits),
          m_strokes(view),
          m_areas(view) {}

    /// Appends the entity; `note` goes behind type, handle and layer in its title.
    void write(std::string& svg, const Shown& shown, Role role, const std::string& note);
    /// Number of entities that became frames, and of those that were left out.
    long framed() const { return m_framed; }
    long omitted() const { return m_omitted; }

  private:
    void writeTitle(std::string& svg, const Shown& shown, const Look& look,
                    const std::string& note);
    /// Appends what is collected of strokes and areas; to `wide` too when it is given.
    void flush(std::string& svg, const std::string& style, std::string* wide);
    std::string styleOf(const Shown& shown, const host::OutlinePart& part, const Look& look,
                        Role role);
    void writeParts(std::string& svg, const Shown& shown, const Look& look, Role role);
    void writeWriting(std::string& svg, const host::Writing& writing,
                      const std::string& style) const;
    void writeFrameAround(std::string& svg, const Shown& shown, const Look& look, Role role);
    void writeFrame(std::string& svg, const std::vector<host::Vec>& corners,
                    const std::string& name, const std::string& style) const;

    const host::Store& m_store;
    const Scene& m_scene;
    const View& m_view;
    Inks& m_inks;
    PictureLimits m_limits;
    PathData m_strokes, m_areas;  ///< of the entity that is being written
    XmlNames m_names;
    long m_framed = 0;
    long m_omitted = 0;
};

}  // namespace picture
