// Writes single entities as SVG.
#pragma once

#include <cstddef>
#include <string>

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

class EntityWriter {
  public:
    /// `mostBytes`: once so much was written, block references with many parts become frames.
    EntityWriter(const host::Store& store, const View& view, Inks& inks, std::size_t mostBytes)
        : m_store(store), m_view(view), m_inks(inks), m_mostBytes(mostBytes) {}

    /// Appends the entity; `note` goes behind type, handle and layer in its title.
    void write(std::string& svg, const Shown& shown, Role role, const std::string& note);
    /// Number of references that became frames.
    long framed() const { return m_framed; }

  private:
    std::string titleOf(const Shown& shown, const std::string& note) const;
    void writeParts(std::string& svg, const Shown& shown, Role role);
    void writeWriting(std::string& svg, const host::Outline& outline, const host::Writing& writing,
                      const std::string& style) const;
    void writeFrame(std::string& svg, const std::vector<host::Vec>& corners,
                    const std::string& name, const std::string& style) const;

    const host::Store& m_store;
    const View& m_view;
    Inks& m_inks;
    std::size_t m_mostBytes;
    long m_framed = 0;
};

}  // namespace picture
