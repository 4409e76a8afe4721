// Wild-card patterns of selection filters.
#include "host/text/wildcard.h"

#include <string>

#include "gtest/gtest.h"

namespace {

struct Case {
    const wchar_t* pattern;
    const wchar_t* text;
    bool matches;
};

class Wildcard : public ::testing::TestWithParam<Case> {};

TEST_P(Wildcard, MatchesByTheRules) {
    const Case& c = GetParam();
    EXPECT_EQ(host::wildcardMatch(c.pattern, c.text), c.matches);
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, Wildcard,
    ::testing::Values(
        Case{L"", L"", true}, Case{L"", L"A", false}, Case{L"LINE", L"LINE", true},
        Case{L"LINE", L"line", false}, Case{L"*LINE", L"LWPOLYLINE", true},
        Case{L"L*E", L"LINES", false}, Case{L"*", L"", true}, Case{L"?", L"", false},
        Case{L"A#", L"A7", true}, Case{L"A#", L"AB", false}, Case{L"@1", L"X1", true},
        Case{L"@1", L"11", false}, Case{L"A.B", L"A-B", true}, Case{L"A.B", L"A1B", false},
        Case{L"~LINE", L"ARC", true}, Case{L"~LINE", L"LINE", false}, Case{L"A~B", L"A~B", true},
        Case{L"[AB]*", L"BOX", true}, Case{L"[~AB]*", L"BOX", false}, Case{L"[~AB]", L"C", true},
        Case{L"[A-C]1", L"B1", true}, Case{L"[A-C]1", L"D1", false}, Case{L"[A-]", L"-", true},
        Case{L"[*]", L"*", true}, Case{L"[*]", L"A", false}, Case{L"[A", L"[A", true},
        Case{L"[]A", L"A", false}, Case{L"LINE,ARC", L"ARC", true}, Case{L"LINE,", L"", true},
        Case{L"`*D#", L"*D1", true}, Case{L"`*D#", L"XD1", false}, Case{L"A`,B", L"A,B", true},
        Case{L"~*1,A1", L"A1", true}, Case{L"A`", L"A`", true}, Case{L"[,]", L",", true}));

// Trying every way would take longer than the test may.
TEST(WildcardTime, HostilePatternsAreBounded) {
    const std::wstring text(10000, L'a');
    std::wstring pattern;
    for (int i = 0; i < 249; ++i)
        pattern += L"*a";
    EXPECT_FALSE(host::wildcardMatch(pattern + L"b", text));
}

TEST(WildcardLength, OnlyTheFirst500CharactersCount) {
    const std::wstring head(500, L'x');
    EXPECT_TRUE(host::wildcardMatch(head, head + L"different"));
    EXPECT_FALSE(host::wildcardMatch(head, head.substr(1)));
}

}  // namespace
