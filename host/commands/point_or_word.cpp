// A prompt that takes a point or one key word.
#include "host/commands/point_or_word.h"

#include "host/text/text_codec.h"

namespace host {

PromptStatus promptPointOrWord(const std::wstring& question, const AcGePoint3d* base,
                               const wchar_t* word, AcGePoint3d& point, bool& isWord) {
    isWord = false;
    for (;;) {
        const Answer answer = prompt(question);
        if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
        if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
        isWord = word != nullptr && foldCase(answer.text) == word;
        if (isWord) return PromptStatus::Ok;
        if (const auto parsed = parsePoint(answer.text, base)) {
            point = *parsed;
            return PromptStatus::Ok;
        }
        std::wstring explanation =
            L"\"" + answer.text + L"\" is no point; give x,y or x,y,z or @dx,dy";
        if (word != nullptr) explanation += std::wstring(L" or ") + word;
        if (!wrongAnswer(explanation)) return PromptStatus::Cancel;
    }
}

}  // namespace host
