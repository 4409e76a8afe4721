// The reader of typed LISP calls.
#include "host/scripting/lisp_reader.h"

#include <cwctype>
#include <limits>
#include <optional>
#include <vector>

#include "host/editor/state/document_state.h"
#include "host/objectarx/database.h"
#include "host/store/store.h"

namespace host {
namespace {

bool isDelimiter(wchar_t c) { return std::iswspace(c) != 0 || c == L'(' || c == L')' || c == L'"'; }

/// A cursor over the expression; every reading function moves it.
class Reader {
  public:
    explicit Reader(const std::wstring& text) : m_text(text) {}

    bool call(LispCall& call);
    const std::string& problem() const { return m_problem; }

  private:
    bool fail(std::string problem) {
        m_problem = std::move(problem);
        return false;
    }
    wchar_t peek() {
        while (m_at < m_text.size() && std::iswspace(m_text[m_at]) != 0)
            ++m_at;
        return m_at < m_text.size() ? m_text[m_at] : L'\0';
    }
    bool accept(wchar_t c) {
        if (peek() != c) return false;
        ++m_at;
        return true;
    }
    std::wstring atom();
    bool string(std::wstring& value);
    bool argument(ResultList& list);
    bool plainArgument(const std::wstring& text, ResultList& list);
    bool listArgument(ResultList& list);
    bool entityArgument(ResultList& list);

    const std::wstring& m_text;
    std::size_t m_at = 0;
    std::string m_problem;
};

std::wstring Reader::atom() {
    peek();
    const std::size_t begin = m_at;
    while (m_at < m_text.size() && !isDelimiter(m_text[m_at]))
        ++m_at;
    return m_text.substr(begin, m_at - begin);
}

bool Reader::string(std::wstring& value) {
    for (++m_at; m_at < m_text.size(); ++m_at) {
        wchar_t c = m_text[m_at];
        if (c == L'"') return ++m_at, true;
        if (c == L'\\' && m_at + 1 < m_text.size()) {
            c = m_text[++m_at];
            if (c == L'n') c = L'\n';
            if (c == L't') c = L'\t';
        }
        value += c;
    }
    return fail("the string has no closing quote");
}

bool Reader::plainArgument(const std::wstring& text, ResultList& list) {
    const std::wstring folded = foldCase(text);
    if (folded == L"NIL" || folded == L"T") {
        list.addMark(folded == L"T" ? RTT : RTNIL);
        return true;
    }
    const std::string narrow = toUtf8(text);
    if (const auto integer = parseInteger(narrow)) {
        const bool isShort = *integer >= -32768 && *integer <= 32767;
        const bool isLong = *integer >= std::numeric_limits<Adesk::Int32>::min() &&
                            *integer <= std::numeric_limits<Adesk::Int32>::max();
        if (!isLong) return fail("the integer " + narrow + " is too large");
        list.addInteger(isShort ? RTSHORT : RTLONG, *integer);
        return true;
    }
    if (const auto real = parseReal(narrow)) {
        list.addReal(RTREAL, *real);
        return true;
    }
    return fail(narrow + " is no string, number, point, nil or T");
}

bool Reader::entityArgument(ResultList& list) {
    std::wstring handle;
    if (peek() != L'"' || !string(handle)) return fail("handent needs a handle in quotes");
    const DocumentState* document = currentDocumentState();
    const auto value = parseHandle(toUtf8(handle));
    const Store* store = document != nullptr ? &document->database->store() : nullptr;
    const ObjectBody* body = store != nullptr && value ? store->byHandle(*value) : nullptr;
    if (body == nullptr) return fail("no object has the handle " + toUtf8(handle));
    list.addName(RTENAME, store->idOf(*body));
    return accept(L')') || fail("a closing bracket is missing");
}

/// Behind an opening bracket: a point, or an entity by its handle.
bool Reader::listArgument(ResultList& list) {
    std::vector<double> numbers;
    while (peek() != L')') {
        const std::wstring text = atom();
        const std::wstring folded = foldCase(text);
        if (numbers.empty() && folded == L"LIST") continue;
        if (numbers.empty() && folded == L"HANDENT") return entityArgument(list);
        const auto number = parseReal(toUtf8(text));
        if (!number) return fail("a list argument must be a point of two or three numbers");
        numbers.push_back(*number);
    }
    ++m_at;
    if (numbers.size() == 2) {
        list.addPoint(RTPOINT, {numbers[0], numbers[1], 0.0});
    } else if (numbers.size() == 3) {
        list.addPoint(RT3DPOINT, {numbers[0], numbers[1], numbers[2]});
    } else {
        return fail("a list argument must be a point of two or three numbers");
    }
    return true;
}

bool Reader::argument(ResultList& list) {
    accept(L'\'');
    if (accept(L'(')) return listArgument(list);
    if (peek() == L'"') {
        std::wstring value;
        if (!string(value)) return false;
        list.addText(RTSTR, value);
        return true;
    }
    return plainArgument(atom(), list);
}

bool Reader::call(LispCall& call) {
    if (!accept(L'(')) return fail("a LISP call begins with an opening bracket");
    peek();
    call.name = atom();
    if (call.name.empty()) return fail("the name of a function is missing");
    while (!accept(L')')) {
        if (peek() == L'\0') return fail("a closing bracket is missing");
        if (!argument(call.arguments)) return false;
    }
    if (peek() != L'\0') return fail("there is text behind the closing bracket");
    return true;
}

}  // namespace

bool readLispCall(const std::wstring& text, LispCall& call, std::string& problem) {
    Reader reader(text);
    if (reader.call(call)) return true;
    problem = reader.problem();
    return false;
}

}  // namespace host
