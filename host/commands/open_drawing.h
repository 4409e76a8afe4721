// What the host's own commands share: the drawing they work on.
#pragma once

#include "host/editor/run/command_runner.h"

namespace host {

class Store;

/// Store of the current drawing; null, with one line of explanation, when none is open.
Store* drawingOrComplaint();

/// A command that works on the current drawing, and fails without one.
template <CommandStatus (*work)(Store& drawing)>
CommandStatus onDrawing() {
    Store* const store = drawingOrComplaint();
    return store != nullptr ? work(*store) : CommandStatus::Failed;
}

}  // namespace host
