// Wild-card matching without recursion: each alternative is compiled to tokens and walked once.
#include "host/text/wildcard.h"

#include <cwctype>
#include <string>
#include <vector>

namespace host {
namespace {

constexpr std::size_t kLongest = 500;

enum class TokenKind { Literal, Digit, Letter, Other, AnyOne, AnySequence, Set };

struct Token {
    TokenKind kind;
    wchar_t literal = 0;
    std::wstring_view members = {};  ///< of a set, without brackets and "~"
    bool negated = false;
};

bool inSet(std::wstring_view members, wchar_t character) {
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i + 2 < members.size() && members[i + 1] == L'-') {
            if (members[i] <= character && character <= members[i + 2]) return true;
            i += 2;
        } else if (members[i] == character) {
            return true;
        }
    }
    return false;
}

bool matchesOne(const Token& token, wchar_t character) {
    const auto code = static_cast<std::wint_t>(character);
    switch (token.kind) {
        case TokenKind::Literal:
            return token.literal == character;
        case TokenKind::Digit:
            return std::iswdigit(code) != 0;
        case TokenKind::Letter:
            return std::iswalpha(code) != 0;
        case TokenKind::Other:
            return std::iswalnum(code) == 0;
        case TokenKind::Set:
            return inSet(token.members, character) != token.negated;
        default:
            return true;
    }
}

/// Reads one token at `position`, which moves behind it. A bracket that is never closed stands for
/// itself, as does a back quote at the end.
Token readToken(std::wstring_view pattern, std::size_t& position) {
    const wchar_t character = pattern[position++];
    switch (character) {
        case L'#':
            return {TokenKind::Digit};
        case L'@':
            return {TokenKind::Letter};
        case L'.':
            return {TokenKind::Other};
        case L'?':
            return {TokenKind::AnyOne};
        case L'*':
            return {TokenKind::AnySequence};
        case L'`':
            if (position < pattern.size()) return {TokenKind::Literal, pattern[position++]};
            break;
        case L'[': {
            const std::size_t end = pattern.find(L']', position);
            if (end == std::wstring_view::npos) break;
            std::wstring_view members = pattern.substr(position, end - position);
            position = end + 1;
            const bool negated = !members.empty() && members.front() == L'~';
            if (negated) members.remove_prefix(1);
            return {TokenKind::Set, 0, members, negated};
        }
        default:
            break;
    }
    return {TokenKind::Literal, character};
}

/// Greedy walk: on a mismatch only the latest "*" takes one character more, which is enough, so the
/// time is bounded by tokens times characters.
bool matchesTokens(const std::vector<Token>& tokens, std::wstring_view text) {
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t token = 0, character = 0, star = kNone, restart = 0;
    while (character < text.size()) {
        if (token < tokens.size() && tokens[token].kind == TokenKind::AnySequence) {
            star = token++;
            restart = character;
        } else if (token < tokens.size() && matchesOne(tokens[token], text[character])) {
            ++token;
            ++character;
        } else if (star != kNone) {
            token = star + 1;
            character = ++restart;
        } else {
            return false;
        }
    }
    while (token < tokens.size() && tokens[token].kind == TokenKind::AnySequence)
        ++token;
    return token == tokens.size();
}

}  // namespace

bool wildcardMatch(std::wstring_view pattern, std::wstring_view text) {
    pattern = pattern.substr(0, kLongest);
    text = text.substr(0, kLongest);
    std::size_t position = 0;
    for (;;) {
        std::vector<Token> tokens;
        const bool negated = position < pattern.size() && pattern[position] == L'~';
        if (negated) ++position;
        while (position < pattern.size() && pattern[position] != L',')
            tokens.push_back(readToken(pattern, position));
        if (matchesTokens(tokens, text) != negated) return true;
        if (position >= pattern.size()) return false;
        ++position;  // the comma
    }
}

}  // namespace host
