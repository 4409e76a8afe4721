// The typed call of ssget with which scripts select by what things are.
#pragma once

#include <string>

#include "host/editor/selection/filter.h"

namespace host {

/// True for a text that begins as a call of ssget.
bool isSsgetCall(const std::wstring& text);
/// Reads (ssget "X" '((0 . "LINE") (8 . "WALLS*"))): a list of group codes with their values, as
/// SelectionFilter takes them; without a list everything passes. False, with one line of
/// explanation, for any other call.
bool readSsgetCall(const std::wstring& text, SelectionFilter& filter, std::wstring& explanation);

}  // namespace host
