// Wild-card matching of selection filters.
#pragma once

#include <string_view>

namespace host {

/// True when `text` matches `pattern`: # digit, @ letter, . neither, * any sequence, ? any one
/// character, [..] one of, [~..] none of, leading ~ not, comma between alternatives, ` next
/// character literally. Minds case. Only the first 500 characters of either count. Time is
/// bounded by pattern times text.
bool wildcardMatch(std::wstring_view pattern, std::wstring_view text);

}  // namespace host
