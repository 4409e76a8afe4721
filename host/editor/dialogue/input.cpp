// Reading answers: the source, points, numbers and texts.
#include "host/editor/dialogue/input.h"

#include <cmath>
#include <cwctype>

#include "host/control/effects.h"
#include "host/control/scoped_value.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/document_state.h"
#include "host/editor/state/notify.h"
#include "host/geometry/angles.h"
#include "host/text/numbers.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

std::wstring withoutBlanks(const std::wstring& text) {
    std::size_t begin = 0, end = text.size();
    while (begin < end && std::iswspace(static_cast<std::wint_t>(text[begin])))
        ++begin;
    while (end > begin && std::iswspace(static_cast<std::wint_t>(text[end - 1])))
        --end;
    return text.substr(begin, end - begin);
}

/// Numbers between separators; none when one of them is no number.
std::vector<double> numbersIn(const std::wstring& text, wchar_t separator) {
    std::vector<double> numbers;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        const std::optional<double> number = parseReal(toUtf8(text.substr(begin, end - begin)));
        if (!number) return {};
        numbers.push_back(*number);
        begin = end + 1;
    }
    return numbers;
}

/// Asks until `read` takes the answer.
template <typename Read>
PromptStatus ask(const std::wstring& text, InputUnit unit, const std::wstring& wanted, Read read) {
    for (;;) {
        const Answer answer = prompt(text, unit);
        if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
        if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
        if (read(answer.text)) return PromptStatus::Ok;
        if (!wrongAnswer(L"\"" + answer.text + L"\" is " + wanted)) return PromptStatus::Cancel;
    }
}

}  // namespace

InputSource*& inputSource() {
    static InputSource* source = nullptr;
    return source;
}

Question& question() {
    static Question asked;
    return asked;
}

Answer prompt(const std::wstring& text, InputUnit unit) {
    InputSource* const source = inputSource();
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
    InputSource* const source = inputSource();
    if (source != nullptr && source->interactive()) {
        source->disregardAnswer();
        return true;
    }
    noteWrongAnswer();
    noteProblem(explanation);
    return false;
}

std::optional<AcGePoint3d> readPoint(const std::wstring& text, const AcGePoint3d* base) {
    DocumentState* document = currentDocumentState();
    if (document == nullptr) return parsePoint(text, base);
    const auto point = parsePoint(text, base != nullptr ? base : &document->lastPoint);
    if (point) document->lastPoint = *point;
    return point;
}

PromptStatus promptPoint(const std::wstring& text, const AcGePoint3d* base, AcGePoint3d& point) {
    wchar_t none = 0;
    return promptPointOrWord(text, base, {}, point, none);
}

PromptStatus promptPointOrWord(const std::wstring& text, const AcGePoint3d* base,
                               const std::wstring& words, AcGePoint3d& point, wchar_t& word) {
    word = 0;
    std::wstring wanted = L"no point; give x,y or distance<angle, with @ from the last point";
    for (const wchar_t letter : words)
        wanted += std::wstring(L", or ") + letter;
    const auto read = [&](const std::wstring& answer) {
        const std::wstring typed = foldCase(answer);
        const bool isWord = typed.size() == 1 && words.find(typed) != std::wstring::npos;
        if (isWord) word = typed[0];
        const std::optional<AcGePoint3d> parsed = isWord ? std::nullopt : readPoint(answer, base);
        if (parsed) point = *parsed;
        return isWord || parsed.has_value();
    };
    const auto from = base != nullptr ? std::make_optional(*base) : std::nullopt;
    const ScopedValue<Question> asking(question(), {Wanted::Point, from});
    return ask(text, InputUnit::Token, wanted, read);
}

PromptStatus promptReal(const std::wstring& text, double& value) {
    return ask(text, InputUnit::Token, L"no number", [&](const std::wstring& answer) {
        const std::optional<double> parsed = parseReal(toUtf8(answer));
        if (parsed) value = *parsed;
        return parsed.has_value();
    });
}

std::optional<std::size_t> promptWord(const std::wstring& text,
                                      const std::vector<std::wstring>& words,
                                      std::size_t standard) {
    std::wstring choice;
    for (const std::wstring& word : words)
        choice += (choice.empty() ? L"" : L", ") + word;
    std::size_t place = standard;
    const auto read = [&](const std::wstring& answer) {
        const std::wstring typed = foldCase(answer);
        for (place = 0; place < words.size(); ++place) {
            const std::wstring word = foldCase(words[place]);
            if (typed == word || typed == word.substr(0, 1)) return true;
        }
        return false;
    };
    const std::wstring wanted = L"none of " + choice;
    switch (ask(text, InputUnit::Token, wanted, read)) {
        case PromptStatus::Ok:
            return place;
        case PromptStatus::None:
            return standard;
        default:
            return std::nullopt;
    }
}

PromptStatus promptText(const std::wstring& text, std::wstring& value) {
    return ask(text, InputUnit::Line, L"no text", [&](const std::wstring& answer) {
        value = answer;
        return true;
    });
}

PromptStatus promptFile(const std::wstring& text, std::string& path) {
    const bool person = inputSource() != nullptr && inputSource()->interactive();
    const ScopedValue<Question> asking(question(), {Wanted::File});
    const Answer answer = prompt(text, person ? InputUnit::Line : InputUnit::Token);
    if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
    if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
    std::wstring name = withoutBlanks(answer.text);
    const bool quoted = person && name.size() > 1 && name.front() == L'"' && name.back() == L'"';
    if (quoted) name = name.substr(1, name.size() - 2);
    path = withHome(toUtf8(name));
    return path.empty() ? PromptStatus::None : PromptStatus::Ok;
}

std::optional<AcGePoint3d> parsePoint(const std::wstring& text, const AcGePoint3d* base) {
    std::wstring rest = withoutBlanks(text);
    AcGePoint3d origin;
    if (!rest.empty() && rest[0] == L'@') {
        if (base == nullptr) return std::nullopt;
        origin = *base;
        rest.erase(0, 1);
    }
    if (rest.empty() && base != nullptr) return origin;
    const bool isPolar = rest.find(L'<') != std::wstring::npos;
    std::vector<double> values = numbersIn(rest, isPolar ? L'<' : L',');
    if (values.size() < 2 || values.size() > (isPolar ? 2 : 3)) return std::nullopt;
    if (isPolar) {
        const double angle = toRadians(std::fmod(values[1], 360));
        const auto exact = [](double part) { return std::fabs(part) < 1e-15 ? 0 : part; };
        values = {values[0] * exact(std::cos(angle)), values[0] * exact(std::sin(angle))};
    }
    values.resize(3);
    return AcGePoint3d(origin.x + values[0], origin.y + values[1], origin.z + values[2]);
}

}  // namespace host
