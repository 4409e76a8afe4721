// The entries of a dictionary: reading, finding, adding and removing.
#include "host/store/dictionary_text.h"

#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {

namespace {

bool isValueCode(int code) { return code == 350 || code == 360; }

std::wstring decodedKey(const ObjectBody& dictionary, std::string_view key) {
    return dictionary.store != nullptr ? dictionary.store->decode(key) : fromUtf8(key);
}

/// Where the tags of the dictionary's own part begin: behind its marker.
std::size_t partBegin(std::string_view text) {
    TagReader reader(text);
    Tag tag;
    while (reader.next(tag))
        if (tag.code == 100 && trimmed(tag.value) == "AcDbDictionary") return reader.end();
    return text.size();
}

}  // namespace

DictionaryReader::DictionaryReader(std::string_view text) : m_text(text), m_at(partBegin(text)) {}

bool DictionaryReader::next(DictionaryEntry& entry) {
    TagReader reader(m_text.substr(m_at));
    Tag tag;
    bool haveKey = false;
    while (reader.next(tag) && tag.code != 100 && tag.code < 1000) {
        if (tag.code == 3) {
            haveKey = true;
            entry.key = tag.value;
            entry.begin = m_at + reader.begin();
        } else if (haveKey && isValueCode(tag.code)) {
            entry.handle = parseHandle(tag.value).value_or(0);
            entry.end = m_at + reader.end();
            m_at = entry.end;
            return true;
        }
    }
    m_at = m_text.size();
    return false;
}

std::optional<DictionaryEntry> findEntry(const ObjectBody& dictionary, std::wstring_view key) {
    const std::wstring folded = foldCase(key);
    DictionaryReader reader(dictionary.tags());
    DictionaryEntry entry;
    while (reader.next(entry))
        if (foldCase(decodedKey(dictionary, entry.key)) == folded) return entry;
    return std::nullopt;
}

bool removeEntry(ObjectBody& dictionary, std::uint64_t handle) {
    DictionaryReader reader(dictionary.tags());
    DictionaryEntry entry;
    while (reader.next(entry)) {
        if (entry.handle != handle) continue;
        std::string text(dictionary.tags());
        text.erase(entry.begin, entry.end - entry.begin);
        dictionary.setTags(std::move(text));
        return true;
    }
    return false;
}

void addEntry(ObjectBody& dictionary, std::wstring_view key, std::uint64_t handle) {
    std::string text(dictionary.tags());
    std::string entry;
    addTag(entry, 3, dictionary.store->encode(key));
    addHandleTag(entry, ownsHard(text) ? 360 : 350, handle);
    // In front of a further subclass part (a default entry) and of extended data.
    std::size_t place = partBegin(text);
    TagReader reader(std::string_view(text).substr(place));
    Tag tag;
    while (reader.next(tag) && tag.code != 100 && tag.code < 1000) {
    }
    place += tag.code == 100 || tag.code >= 1000 ? reader.begin() : reader.end();
    text.insert(place, entry);
    dictionary.setTags(std::move(text));
}

std::string newDictionaryText(bool hard) {
    std::string text;
    addTag(text, 0, "DICTIONARY");
    addTag(text, 100, "AcDbDictionary");
    if (hard) addTag(text, 280, 1);
    addTag(text, 281, 1);
    return text;
}

bool ownsHard(std::string_view dictionaryText) { return integerTag(dictionaryText, 280, 0) != 0; }

}  // namespace host
