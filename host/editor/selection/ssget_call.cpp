// The typed call of ssget with which scripts select by what things are.
#include "host/editor/selection/ssget_call.h"

#include <limits>
#include <optional>

#include "host/objects/result_list.h"
#include "host/text/lisp_cursor.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// The value of a pair as its code asks; false when it is of another kind.
bool readValue(LispCursor& call, int type, ResultList& list) {
    const ValueKind kind = valueKindOf(type);
    if (kind == ValueKind::Text) {
        const std::optional<std::wstring> text = call.string();
        if (text) list.addText(type, *text);
        return text.has_value();
    }
    const std::string word = toUtf8(call.atom());
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
bool readPair(LispCursor& call, ResultList& list, std::wstring& explanation) {
    constexpr int kOperator = -4;
    const std::wstring name = call.atom();
    const std::optional<long long> code = parseInteger(toUtf8(name));
    const bool known = code && *code >= kOperator && *code < 1000;
    const int type = !known || *code == 0 ? RTDXF0 : static_cast<int>(*code);
    if (known && call.atom() == L"." && readValue(call, type, list) && call.accept(L')'))
        return true;
    explanation = L"the filter cannot be read at \"" + name +
                  L"\"; a pair is (8 . \"WALLS*\"), a text for a text, a number for a number";
    return false;
}

/// The whole call; the pairs go into `list`.
bool readCall(LispCursor& call, ResultList& list, std::wstring& explanation) {
    const std::optional<std::wstring> mode = call.string();
    if (!mode || (foldCase(*mode) != L"X" && foldCase(*mode) != L"_X")) {
        explanation = L"ssget is served with the mode \"X\" only: (ssget \"X\" '((8 . \"0\")))";
        return false;
    }
    if (call.accept(L'\'')) {
        if (!call.accept(L'(')) return explanation = L"the filter of ssget is no list", false;
        while (call.accept(L'('))
            if (!readPair(call, list, explanation)) return false;
        if (!call.accept(L')')) {
            explanation = L"the filter of ssget ends without a bracket or holds more than pairs";
            return false;
        }
    }
    if (call.accept(L')') && call.peek() == 0) return true;
    explanation = L"ssget takes \"X\" and one quoted list, nothing else";
    return false;
}

bool beginCall(LispCursor& call) { return call.accept(L'(') && foldCase(call.atom()) == L"SSGET"; }

}  // namespace

bool isSsgetCall(const std::wstring& text) {
    LispCursor call(text);
    return beginCall(call);
}

bool readSsgetCall(const std::wstring& text, SelectionFilter& filter, std::wstring& explanation) {
    LispCursor call(text);
    ResultList list;
    if (!beginCall(call) || !readCall(call, list, explanation)) return false;
    resbuf* const buffers = list.release();
    const bool served = SelectionFilter::read(buffers, filter);
    freeList(buffers);
    if (!served) explanation = L"the operators of the filter do not pair, or one is not served";
    return served;
}

}  // namespace host
