// Wild-card patterns of selection filters.
#include "host/text/wildcard.h"

#include <sstream>
#include <string>

#include "gtest/gtest.h"
#include "host/text/text_codec.h"

namespace {

/// Patterns with their texts, all of which match or all do not; "_" is nothing.
void expectEach(const wchar_t* pairs, bool matches) {
    std::wistringstream words(pairs);
    for (std::wstring pattern, text; words >> pattern >> text;) {
        if (pattern == L"_") pattern.clear();
        if (text == L"_") text.clear();
        EXPECT_EQ(host::wildcardMatch(pattern, text), matches) << host::toUtf8(pattern);
    }
}

TEST(Wildcard, MatchesByTheRules) {
    expectEach(
        L"_ _  LINE LINE  *LINE LWPOLYLINE  * _  A# A7  @1 X1  A.B A-B  ~LINE ARC  "
        L"A~B A~B  [AB]* BOX  [~AB] C  [A-C]1 B1  [A-] -  [*] *  [A [A  LINE,ARC ARC  "
        L"LINE, _  `*D# *D1  A`,B A,B  ~*1,A1 A1  A` A`  [,] ,",
        true);
    expectEach(
        L"_ A  LINE line  L*E LINES  ? _  A# AB  @1 11  A.B A1B  ~LINE LINE  "
        L"[~AB]* BOX  [A-C]1 D1  [*] A  []A A  `*D# XD1",
        false);
    const std::wstring head(500, L'x');
    EXPECT_TRUE(host::wildcardMatch(head, head + L"different")) << "500 characters count";
    EXPECT_FALSE(host::wildcardMatch(head, head.substr(1)));
    // Trying every way would take longer than the test may.
    std::wstring pattern;
    for (int i = 0; i < 249; ++i)
        pattern += L"*a";
    EXPECT_FALSE(host::wildcardMatch(pattern + L"b", std::wstring(10000, L'a')));
}

}  // namespace
