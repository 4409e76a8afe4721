// The typed call of ssget with which scripts select by what things are.
#include "host/editor/selection/ssget_call.h"

#include <cwctype>
#include <limits>
#include <optional>

#include "host/objects/result_buffer_tools.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// A cursor over the call; every reading function moves it.
class Call {
  public:
    explicit Call(const std::wstring& text) : m_text(text) {}

    bool accept(wchar_t c) {
        skipBlanks();
        if (m_at == m_text.size() || m_text[m_at] != c) return false;
        ++m_at;
        return true;
    }
    bool atEnd() const { return m_at == m_text.size(); }

    /// A name, a number or the dot of a pair.
    std::wstring word() {
        skipBlanks();
        const std::size_t begin = m_at;
        while (m_at < m_text.size() && !std::iswspace(static_cast<std::wint_t>(m_text[m_at])) &&
               std::wstring(L"()\"'").find(m_text[m_at]) == std::wstring::npos)
            ++m_at;
        return m_text.substr(begin, m_at - begin);
    }
    std::optional<std::wstring> string() {
        if (!accept(L'"')) return std::nullopt;
        std::wstring value;
        for (; m_at < m_text.size() && m_text[m_at] != L'"'; ++m_at) {
            if (m_text[m_at] == L'\\' && m_at + 1 < m_text.size()) ++m_at;
            value += m_text[m_at];
        }
        return accept(L'"') ? std::optional(value) : std::nullopt;
    }

  private:
    void skipBlanks() {
        while (m_at < m_text.size() && std::iswspace(static_cast<std::wint_t>(m_text[m_at])))
            ++m_at;
    }

    const std::wstring& m_text;
    std::size_t m_at = 0;
};

/// The value of a pair as its code asks; false when it is of another kind.
bool readValue(Call& call, int type, ResultList& list) {
    const ValueKind kind = valueKindOf(type);
    if (kind == ValueKind::Text) {
        const std::optional<std::wstring> text = call.string();
        if (text) list.addText(type, *text);
        return text.has_value();
    }
    const std::string word = toUtf8(call.word());
    if (kind == ValueKind::Real) {
        const std::optional<double> real = parseReal(word);
        if (real) list.addReal(type, *real);
        return real.has_value();
    }
    const long long largest = kind == ValueKind::Short  ? std::numeric_limits<short>::max()
                              : kind == ValueKind::Long ? std::numeric_limits<Adesk::Int32>::max()
                                                        : -1;
    const std::optional<long long> integer = parseInteger(word);
    if (!integer || *integer > largest || *integer < -largest) return false;
    list.addInteger(type, *integer);
    return true;
}

/// Behind the opening bracket of a pair: "8 . "WALLS*")".
bool readPair(Call& call, ResultList& list, std::wstring& explanation) {
    constexpr int kOperator = -4;
    const std::wstring name = call.word();
    const std::optional<long long> code = parseInteger(toUtf8(name));
    const bool known = code && *code >= kOperator && *code < 1000;
    const int type = !known || *code == 0 ? RTDXF0 : static_cast<int>(*code);
    if (known && call.word() == L"." && readValue(call, type, list) && call.accept(L')'))
        return true;
    explanation = L"the filter cannot be read at \"" + name +
                  L"\"; a pair is (8 . \"WALLS*\"), a text for a text, a number for a number";
    return false;
}

/// The whole call, its filter behind ' or in (quote ...); the pairs go into `list`.
bool readCall(Call& call, ResultList& list, std::wstring& explanation) {
    const std::optional<std::wstring> mode = call.string();
    if (!mode || (foldCase(*mode) != L"X" && foldCase(*mode) != L"_X")) {
        explanation = L"ssget is served with the mode \"X\" only: (ssget \"X\" '((8 . \"0\")))";
        return false;
    }
    const bool quoted = call.accept(L'\'');
    const bool spelled = !quoted && call.accept(L'(');
    const bool lacksQuote = spelled && foldCase(call.word()) != L"QUOTE";
    if (lacksQuote) return explanation = L"the filter of ssget is not quoted", false;
    if (quoted || spelled) {
        if (!call.accept(L'(')) return explanation = L"the filter of ssget is no list", false;
        while (call.accept(L'('))
            if (!readPair(call, list, explanation)) return false;
        if (!call.accept(L')') || (spelled && !call.accept(L')'))) {
            explanation = L"the filter of ssget ends without a bracket or holds more than pairs";
            return false;
        }
    }
    if (call.accept(L')') && call.atEnd()) return true;
    explanation = L"ssget takes \"X\" and one quoted list, nothing else";
    return false;
}

bool beginCall(Call& call) { return call.accept(L'(') && foldCase(call.word()) == L"SSGET"; }

}  // namespace

bool isSsgetCall(const std::wstring& text) {
    Call call(text);
    return beginCall(call);
}

bool readSsgetCall(const std::wstring& text, SelectionFilter& filter, std::wstring& explanation) {
    Call call(text);
    ResultList list;
    if (!beginCall(call) || !readCall(call, list, explanation)) return false;
    resbuf* const buffers = list.release();
    const bool served = SelectionFilter::read(buffers, filter);
    freeList(buffers);
    if (!served) explanation = L"the operators of the filter do not pair, or one is not served";
    return served;
}

}  // namespace host
