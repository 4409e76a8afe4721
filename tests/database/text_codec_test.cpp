// Text of drawings and wide characters: UTF-8, code pages, escapes.
#include "host/text/text_codec.h"

#include "common/checks.h"

namespace host {
namespace {

const Encoding kUtf8;
const Encoding kWestern{"ANSI_1252", false};
const Encoding kJapanese{"ansi_932", false};

TEST(TextCodec, CharactersThatAnEncodingLacksAreEscaped) {
    const std::wstring text = L"a\x00E4\x0416" + fromUtf8("\xF0\x9F\x98\x80");
    EXPECT_EQ(encodeText(text, kWestern), "a\xE4\\U+0416\\U+D83D\\U+DE00");
    EXPECT_EQ(encodeText(text, kUtf8), "a\xC3\xA4\xD0\x96\xF0\x9F\x98\x80");
    for (const Encoding& encoding : {kUtf8, kWestern, kJapanese}) {
        EXPECT_EQ(decodeText(encodeText(text, encoding), encoding), text);
    }
    EXPECT_EQ(encodeText(L"one\r\ntwo", kUtf8), "one  two");
    EXPECT_EQ(decodeText("\\U+00e4\\U+12", kUtf8), L"\x00E4\\U+12");
}

TEST(TextCodec, MalformedTextIsSeenAndNeverFails) {
    for (const char* bytes : {"\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\x80"}) {
        EXPECT_FALSE(wellFormed(bytes, kUtf8));
        EXPECT_TRUE(tests::holds(fromUtf8(bytes), L"\xFFFD"));
    }
    EXPECT_TRUE(wellFormed("\x83\x65", kJapanese));
    EXPECT_FALSE(wellFormed("\x83", kJapanese));
    EXPECT_FALSE(wellFormed("\x81", kWestern));
    EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

TEST(TextCodec, FilesOfPeopleAreUtf16ByTheirMark) {
    const auto read = [](std::string_view bytes) { return toUtf8(fromTextFile(bytes)); };
    EXPECT_EQ(read(std::string_view("\xFF\xFEL\0\xE4\0\x3D\xD8\x00\xDEx", 11)),
              "L\u00E4\U0001F600");
    EXPECT_EQ(read(std::string_view("\xFE\xFF\0L\xD8\x3D\0x", 8)), "L\uFFFDx");
    EXPECT_EQ(read("L\u00E4"), "L\u00E4");
}

TEST(TextCodec, CodePagesAreKnownByTheirNames) {
    for (const char* name : {"ANSI_1251", "ansi_936", "DOS850", "dos437", "ISO8859-1", "UTF-8"}) {
        EXPECT_TRUE(encodingKnown({name, false})) << name;
    }
    for (const char* name : {"", "ANSI_", "ANSI_77", "EBCDIC", "ANSI_-1"}) {
        EXPECT_FALSE(encodingKnown({name, false})) << name;
    }
    EXPECT_EQ(foldCase(L"w\x00E4nde \x0436"), L"W\x00C4NDE \x0416");
}

}  // namespace
}  // namespace host
