// Reading answers: the source, points, numbers and texts.
#include "host/editor/dialogue/input.h"

#include <cmath>
#include <cwctype>

#include "host/control/effects.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/notify.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

InputSource* source = nullptr;

std::wstring withoutBlanks(const std::wstring& text) {
    std::size_t begin = 0, end = text.size();
    while (begin < end && std::iswspace(static_cast<std::wint_t>(text[begin])))
        ++begin;
    while (end > begin && std::iswspace(static_cast<std::wint_t>(text[end - 1])))
        --end;
    return text.substr(begin, end - begin);
}

std::optional<double> finiteReal(const std::wstring& text) {
    const std::optional<double> value = parseReal(toUtf8(text));
    return value && std::isfinite(*value) ? value : std::nullopt;
}

/// Asks until `read` takes the answer.
template <typename Read>
PromptStatus ask(const std::wstring& text, InputUnit unit, const wchar_t* wanted, Read read) {
    for (;;) {
        const Answer answer = prompt(text, unit);
        if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
        if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
        if (read(answer.text)) return PromptStatus::Ok;
        if (!wrongAnswer(L"\"" + answer.text + L"\" is " + wanted)) return PromptStatus::Cancel;
    }
}

}  // namespace

void setInputSource(InputSource* newSource) { source = newSource; }

InputSource* inputSource() { return source; }

Answer prompt(const std::wstring& text, InputUnit unit) {
    Answer answer{Answer::Kind::End, {}};
    if (inputAllowed("a prompt")) {
        if (!text.empty()) print(text);
        if (source != nullptr) answer = source->next(text, unit);
    }
    if (answer.kind == Answer::Kind::Cancel || answer.kind == Answer::Kind::End) {
        print(L"*Cancel*");
        noteCancelled();
    } else if (!answer.text.empty() && !source->interactive()) {
        print(answer.text);
    }
    return answer;
}

bool wrongAnswer(const std::wstring& explanation) {
    printLine(explanation + L".");
    if (source != nullptr && source->interactive()) return true;
    noteWrongAnswer();
    noteProblem(explanation);
    return false;
}

PromptStatus promptPoint(const std::wstring& text, const AcGePoint3d* base, AcGePoint3d& point) {
    const auto read = [&](const std::wstring& answer) {
        const std::optional<AcGePoint3d> parsed = parsePoint(answer, base);
        if (parsed) point = *parsed;
        return parsed.has_value();
    };
    const wchar_t* wanted =
        base == nullptr ? L"no point; give x,y or x,y,z" : L"no point; give x,y or x,y,z or @dx,dy";
    return ask(text, InputUnit::Token, wanted, read);
}

PromptStatus promptReal(const std::wstring& text, double& value) {
    return ask(text, InputUnit::Token, L"no number", [&](const std::wstring& answer) {
        const std::optional<double> parsed = finiteReal(answer);
        if (parsed) value = *parsed;
        return parsed.has_value();
    });
}

PromptStatus promptText(const std::wstring& text, std::wstring& value) {
    return ask(text, InputUnit::Line, L"no text", [&](const std::wstring& answer) {
        value = answer;
        return true;
    });
}

std::optional<AcGePoint3d> parsePoint(const std::wstring& text, const AcGePoint3d* base) {
    std::wstring rest = withoutBlanks(text);
    AcGePoint3d origin;
    if (!rest.empty() && rest[0] == L'@') {
        if (base == nullptr) return std::nullopt;
        origin = *base;
        rest.erase(0, 1);
    }
    double values[3] = {0, 0, 0};
    int count = 0;
    for (std::size_t begin = 0; begin <= rest.size(); ++count) {
        const std::size_t end = std::min(rest.find(L',', begin), rest.size());
        const std::optional<double> value =
            count < 3 ? finiteReal(rest.substr(begin, end - begin)) : std::nullopt;
        if (!value) return std::nullopt;
        values[count] = *value;
        begin = end + 1;
    }
    if (count < 2) return std::nullopt;
    return AcGePoint3d(origin.x + values[0], origin.y + values[1], origin.z + values[2]);
}

std::optional<std::wstring> parseHandent(const std::wstring& text) {
    const std::wstring whole = withoutBlanks(text);
    if (whole.size() < 2 || whole.front() != L'(' || whole.back() != L')') return std::nullopt;
    const std::wstring inner = withoutBlanks(whole.substr(1, whole.size() - 2));
    if (foldCase(inner.substr(0, 7)) != L"HANDENT") return std::nullopt;
    const std::wstring quoted = withoutBlanks(inner.substr(7));
    if (quoted.size() < 3 || quoted.front() != L'"' || quoted.back() != L'"') return std::nullopt;
    return quoted.substr(1, quoted.size() - 2);
}

}  // namespace host
