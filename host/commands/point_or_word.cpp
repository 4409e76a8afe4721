// A prompt that takes a point or one of some key words.
#include "host/commands/point_or_word.h"

#include "host/text/text_codec.h"

namespace host {

PromptStatus promptPointOrWord(const std::wstring& question, const AcGePoint3d* base,
                               const std::wstring& words, AcGePoint3d& point, wchar_t& word) {
    word = 0;
    const Asking asking(Wanted::Point, base);
    for (;;) {
        const Answer answer = prompt(question);
        if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
        if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
        const std::wstring typed = foldCase(answer.text);
        if (typed.size() == 1 && words.find(typed) != std::wstring::npos) {
            word = typed[0];
            return PromptStatus::Ok;
        }
        if (const auto given = readPoint(answer.text, base)) {
            point = *given;
            return PromptStatus::Ok;
        }
        std::wstring explanation = L"\"" + answer.text + L"\" is " + kNoPoint;
        for (const wchar_t letter : words)
            explanation += std::wstring(L", or ") + letter;
        if (!wrongAnswer(explanation)) return PromptStatus::Cancel;
    }
}

}  // namespace host
