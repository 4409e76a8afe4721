// A prompt that takes a point or one key word.
#pragma once

#include <string>

#include "host/editor/dialogue/input.h"

namespace host {

/// As promptPoint, but the answer may also be `word` (upper case, null for none) in any case: then
/// Ok with `isWord` true.
PromptStatus promptPointOrWord(const std::wstring& question, const AcGePoint3d* base,
                               const wchar_t* word, AcGePoint3d& point, bool& isWord);

}  // namespace host
