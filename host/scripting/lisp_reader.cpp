// The reader of typed LISP calls.
#include "host/scripting/lisp_reader.h"

#include <limits>
#include <vector>

#include "host/editor/state/current_drawing.h"
#include "host/store/store.h"
#include "host/text/lisp_cursor.h"

namespace host {
namespace {

/// Reads a call piece by piece; false, with the problem, for what cannot be read.
class Reader {
  public:
    Reader(const std::wstring& text, std::string& problem) : m_cursor(text), m_problem(problem) {}

    bool call(LispCall& call);

  private:
    bool fail(std::string problem) {
        m_problem = std::move(problem);
        return false;
    }
    bool argument(ResultList& list);
    bool plainArgument(const std::wstring& text, ResultList& list);
    bool listArgument(ResultList& list);
    bool entityArgument(ResultList& list);

    LispCursor m_cursor;
    std::string& m_problem;
};

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
    const auto handle = m_cursor.string();
    if (!handle) return fail("handent needs a handle in quotes");
    const Store* store = currentStore();
    const ObjectBody* body = store != nullptr ? store->byHandle(toUtf8(*handle)) : nullptr;
    if (body == nullptr) return fail("no object has the handle " + toUtf8(*handle));
    list.addName(RTENAME, body->store->idOf(*body));
    return m_cursor.accept(L')') || fail("a closing bracket is missing");
}

/// Behind an opening bracket: a point, or an entity by its handle.
bool Reader::listArgument(ResultList& list) {
    std::vector<double> numbers;
    while (!m_cursor.accept(L')')) {
        const std::wstring text = m_cursor.atom();
        const std::wstring folded = foldCase(text);
        if (numbers.empty() && folded == L"LIST") continue;
        if (numbers.empty() && folded == L"HANDENT") return entityArgument(list);
        const auto number = parseReal(toUtf8(text));
        if (!number) return fail("a list argument must be a point of two or three numbers");
        numbers.push_back(*number);
    }
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
    m_cursor.accept(L'\'');
    if (m_cursor.accept(L'(')) return listArgument(list);
    if (m_cursor.peek() != L'"') return plainArgument(m_cursor.atom(), list);
    const auto text = m_cursor.string();
    if (!text) return fail("the string has no closing quote");
    list.addText(RTSTR, *text);
    return true;
}

bool Reader::call(LispCall& call) {
    if (!m_cursor.accept(L'(')) return fail("a LISP call begins with an opening bracket");
    call.name = m_cursor.atom();
    if (call.name.empty()) return fail("the name of a function is missing");
    while (!m_cursor.accept(L')')) {
        if (m_cursor.peek() == L'\0') return fail("a closing bracket is missing");
        if (!argument(call.arguments)) return false;
    }
    return m_cursor.peek() == L'\0' || fail("there is text behind the closing bracket");
}

}  // namespace

bool readLispCall(const std::wstring& text, LispCall& call, std::string& problem) {
    return Reader(text, problem).call(call);
}

}  // namespace host
