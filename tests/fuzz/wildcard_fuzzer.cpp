// libFuzzer target: the wild-card matcher, compared with a plain one that tries every way.
//
// An input is a pattern, a line feed and a text.
#include <cwctype>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_support.h"
#include "host/text/text_codec.h"
#include "host/text/wildcard.h"

namespace {

using View = std::wstring_view;

/// Length of the bracket set that opens a pattern, with its brackets; 0 when it is never closed.
std::size_t setLength(View pattern) {
    const std::size_t end = pattern.find(L']', 1);
    return pattern[0] == L'[' && end != View::npos ? end + 1 : 0;
}

bool inSet(View set, wchar_t c) {
    set = set.substr(1, set.size() - 2);
    const bool negated = !set.empty() && set[0] == L'~';
    if (negated) set.remove_prefix(1);
    while (!set.empty()) {
        const bool range = set.size() > 2 && set[1] == L'-';
        if (range ? set[0] <= c && c <= set[2] : set[0] == c) return !negated;
        set.remove_prefix(range ? 3 : 1);
    }
    return negated;
}

/// Length of the first element of a pattern that is not empty.
std::size_t elementLength(View pattern) {
    if (const std::size_t length = setLength(pattern)) return length;
    return pattern[0] == L'`' && pattern.size() > 1 ? 2 : 1;
}

bool elementMatches(View element, wchar_t c) {
    const auto code = static_cast<std::wint_t>(c);
    if (element.size() == 2 && element[0] == L'`') return element[1] == c;
    if (element.size() > 1) return inSet(element, c);
    switch (element[0]) {
        case L'#':
            return std::iswdigit(code) != 0;
        case L'@':
            return std::iswalpha(code) != 0;
        case L'.':
            return std::iswalnum(code) == 0;
        case L'?':
            return true;
        default:
            return element[0] == c;
    }
}

/// One alternative: which ends of the text each element can reach.
bool alternativeMatches(View pattern, View text) {
    std::vector<bool> reached(text.size() + 1, false);
    reached[0] = true;
    while (!pattern.empty()) {
        const View element = pattern.substr(0, elementLength(pattern));
        pattern.remove_prefix(element.size());
        std::vector<bool> next(text.size() + 1, false);
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (element == L"*") {
                next[i] = reached[i] || (i > 0 && next[i - 1]);
            } else if (i > 0) {
                next[i] = reached[i - 1] && elementMatches(element, text[i - 1]);
            }
        }
        reached = next;
    }
    return reached[text.size()];
}

bool matches(View pattern, View text) {
    pattern = pattern.substr(0, 500);
    text = text.substr(0, 500);
    for (;;) {
        const bool negated = !pattern.empty() && pattern[0] == L'~';
        if (negated) pattern.remove_prefix(1);
        std::size_t end = 0;
        // A comma in a set parts nothing, nor does one behind a back quote.
        while (end < pattern.size() && pattern[end] != L',')
            end += elementLength(pattern.substr(end));
        if (alternativeMatches(pattern.substr(0, end), text) != negated) return true;
        if (end == pattern.size()) return false;
        pattern.remove_prefix(end + 1);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) return 0;
    const std::wstring pattern = host::fromUtf8(bytes.substr(0, end));
    const std::wstring text = host::fromUtf8(bytes.substr(end + 1));
    if (host::wildcardMatch(pattern, text) != matches(pattern, text)) {
        fuzz::expectNone("matches differently: " + std::string(bytes));
    }
    return 0;
}
