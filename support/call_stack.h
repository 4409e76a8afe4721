// The call stack as text, for assertion reports.
#pragma once

#include <string>

/// One line a frame, innermost first: "VelmoGroup.arx + 0x1A2B". At most 61 frames.
std::wstring callStackText();
