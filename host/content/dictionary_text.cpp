// The entries of a dictionary: reading, finding, adding and removing.
#include "host/content/dictionary_text.h"

#include "host/tags/tag_values.h"
#include "host/text/text_codec.h"

namespace host {

bool DictionaryReader::next(DictionaryEntry& entry) {
    bool haveKey = false;
    while (m_atKey || m_walk.nextOwn()) {
        const bool isKey = m_inPart && m_walk.code() == 3;
        m_atKey = isKey && haveKey;
        if (m_atKey) return true;
        if (m_walk.role() == TagRole::Marker) {
            m_inPart = trimmed(m_walk.value()) == "AcDbDictionary";
        } else if (isKey) {
            haveKey = true;
            entry = {m_walk.value(), 0, m_walk.begin(), m_walk.end()};
        } else if (haveKey && m_inPart && (m_walk.code() == 350 || m_walk.code() == 360)) {
            entry.handle = parseHandle(m_walk.value()).value_or(0);
            entry.end = m_walk.end();
            return true;
        }
    }
    return haveKey;
}

std::optional<DictionaryEntry> findEntry(const ObjectBody& dictionary, std::wstring_view key) {
    const std::wstring folded = foldCase(key);
    DictionaryReader reader(dictionary.tags());
    for (DictionaryEntry entry; reader.next(entry);)
        if (foldCase(dictionary.decode(entry.key)) == folded) return entry;
    return std::nullopt;
}

std::optional<DictionaryEntry> findEntry(const ObjectBody& dictionary, std::uint64_t handle) {
    DictionaryReader reader(dictionary.tags());
    for (DictionaryEntry entry; reader.next(entry);)
        if (entry.handle == handle) return entry;
    return std::nullopt;
}

void removeEntry(ObjectBody& dictionary, std::uint64_t handle) {
    const auto entry = findEntry(dictionary, handle);
    if (!entry) return;
    std::string text(dictionary.tags());
    text.erase(entry->begin, entry->end - entry->begin);
    dictionary.setTags(text);
}

void addEntry(ObjectBody& dictionary, std::wstring_view key, std::uint64_t handle) {
    std::string text(dictionary.tags());
    const std::string entry = storedTags(
        {{3, dictionary.encode(key)}, {ownsHard(text) ? 360 : 350, formatHandle(handle)}});
    // In front of a further subclass part (a default entry) and of extended data.
    std::size_t place = text.size();
    bool inPart = false;
    TagWalk walk(text);
    while (walk.nextOwn() && !(inPart && walk.role() == TagRole::Marker)) {
        inPart =
            inPart || (walk.role() == TagRole::Marker && trimmed(walk.value()) == "AcDbDictionary");
        if (inPart) place = walk.end();
    }
    text.insert(place, entry);
    dictionary.setTags(text);
}

std::string newDictionaryText(bool hard) {
    std::string text = storedTags({{0, "DICTIONARY"}, {100, "AcDbDictionary"}});
    return text += hard ? "280\n1\n281\n1\n" : "281\n1\n";
}

bool ownsHard(std::string_view dictionaryText) { return integerTag(dictionaryText, 280) != 0; }

}  // namespace host
