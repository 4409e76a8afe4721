// A prompt that takes a point or one of some key words.
#pragma once

#include <string>

#include "host/editor/dialogue/input.h"

namespace host {

/// As promptPoint, but the answer may also be one of the letters of `words` (upper case) in any
/// case: then Ok with `word` that letter, else 0.
PromptStatus promptPointOrWord(const std::wstring& question, const AcGePoint3d* base,
                               const std::wstring& words, AcGePoint3d& point, wchar_t& word);

}  // namespace host
