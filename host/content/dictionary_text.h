// The entries of a dictionary, as they stand in its tags.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/store/object_body.h"
#include "host/tags/tag_walk.h"

namespace host {

/// Tags of an empty dictionary, which owns its entries hard or softly.
std::string newDictionaryText(bool hard);

/// One entry: key (3) and handle of the value (350 or 360). A key without a value is an entry that
/// names nothing.
struct DictionaryEntry {
    std::string_view key;  ///< as stored
    std::uint64_t handle = 0;
    std::size_t begin = 0;  ///< of the key's tag in the dictionary's text
    std::size_t end = 0;    ///< behind the handle's tag, or the key's when it has none
};

/// Reads the entries of a dictionary in their order.
class DictionaryReader {
  public:
    explicit DictionaryReader(std::string_view text) : m_walk(text) {}
    bool next(DictionaryEntry& entry);

  private:
    TagWalk m_walk;
    bool m_inPart = false;
    bool m_atKey = false;  ///< the walk stands on the key of the next entry
};

/// The entry under a key without regard to case, or that of an object, whether it lives or not.
std::optional<DictionaryEntry> findEntry(const ObjectBody& dictionary, std::wstring_view key);
std::optional<DictionaryEntry> findEntry(const ObjectBody& dictionary, std::uint64_t handle);
/// Takes the entry with a handle out of the tags; harmless when there is none.
void removeEntry(ObjectBody& dictionary, std::uint64_t handle);
/// Adds an entry behind the others.
void addEntry(ObjectBody& dictionary, std::wstring_view key, std::uint64_t handle);
/// True when the entries are hard-owned (280).
bool ownsHard(std::string_view dictionaryText);

}  // namespace host
