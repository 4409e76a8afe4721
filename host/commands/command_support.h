// What the host's own commands share: the drawing they work on, and printing.
#pragma once

#include <string>

namespace host {

class Store;

/// Store of the current drawing; null, with one line of explanation, when none is open.
Store* drawingOrComplaint();
/// Prints one line on the command line, on a line of its own.
void say(const std::wstring& text);

}  // namespace host
