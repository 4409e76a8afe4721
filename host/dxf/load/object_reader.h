// One object after the other from a stream of tags.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/dxf/file/tag_stream.h"
#include "host/tags/tag_walk.h"

namespace host {

/// What linking has to know of an object besides its text.
struct ObjectFacts {
    std::uint64_t owner = 0;     ///< handle in tag 330; 0 when absent or null
    std::uint64_t line : 60;     ///< of tag 0
    std::uint64_t hasOwner : 1;  ///< has a tag 330
    std::uint64_t hasSpace : 1;  ///< has a tag 67, or 410 without it
    std::uint64_t inPaper : 1;   ///< 67, or else 410, says paper space
    ObjectFacts() : line(0), hasOwner(0), hasSpace(0), inPaper(0) {}
};

/// Tags of one object as read, with what tells its identity and place.
struct RawObject {
    std::string text;          ///< all tags in stored form, tag 0 first
    std::uint64_t handle = 0;  ///< tag 5 (105 in DIMSTYLE); 0 when absent
    long line = 0;             ///< of tag 0
    long handleLine = 0;       ///< of the handle
    bool hasSpace = false;     ///< has tag 67
    ObjectFacts facts;

    std::string_view type() const;
    /// First tag 2; empty when there is none.
    std::string_view name() const;
};

/// Reads objects; stands on a tag 0 between the calls.
class ObjectReader {
  public:
    explicit ObjectReader(TagStream& stream) : m_stream(stream) {}

    /// Moves to the first tag; false when there is none or it is no tag 0.
    bool start();
    /// Value of the tag 0 where the reader stands; empty at the end of the file.
    const std::string& type() const { return m_type; }
    long line() const { return m_typeLine; }
    /// Reads the object here and moves to the next tag 0. False after an error.
    bool read(RawObject& object);
    /// Moves behind a bare mark such as ENDSEC, which has no tags of its own.
    bool skipMark();
    /// The same for ENDSEC, but tags and further ENDSECs behind it are appended to `strays`.
    bool skipMark(std::string& strays);
    /// Moves behind "0 SECTION" and its name. False after an error.
    bool readSectionName(std::string& name);
    /// Appends everything up to the next "0 ENDSEC" to `text`, showing each tag with its line to
    /// `seen` when that is not empty. Stands there afterwards.
    using TagSeen = std::function<void(const TagStream::Tag& tag, long line)>;
    bool readRaw(std::string& text, const TagSeen& seen = {});

    TagStream& stream() { return m_stream; }

  private:
    bool advance();
    bool note(RawObject& object, TagRole role);
    void append(std::string& text) const;

    TagStream& m_stream;
    TagStream::Tag m_tag;
    std::string m_type;
    long m_typeLine = 0;
};

}  // namespace host
