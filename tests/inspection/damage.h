// A drawing with groups as text, damaged in every way that its groups can be.
#pragma once

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tests {

/// Takes the entities of a saved drawing apart and puts them together differently.
class DamagedDrawing {
  public:
    DamagedDrawing(const std::string& dxf, const std::string& prefix, unsigned seed);

    /// One random damage; what it was.
    std::string damage();
    std::string text() const;

  private:
    using Tags = std::vector<std::pair<std::string, std::string>>;

    std::size_t any(std::size_t count) { return m_random() % count; }
    std::size_t anyMarker();
    /// The tag with a code in one of the marker's attributes.
    std::string* attributeValue(const std::string& code);
    std::string anyText();
    std::string move();
    std::string rename();
    std::string insert();
    std::string lockLayer();

    std::string m_prefix;
    std::mt19937 m_random;
    Tags m_before, m_behind;       ///< the file around its entities
    std::vector<Tags> m_entities;  ///< main ones with their sub-entities
};

}  // namespace tests
