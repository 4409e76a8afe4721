// What the host's own commands share: the drawing they work on.
#pragma once

namespace host {

class Store;

/// Store of the current drawing; null, with one line of explanation, when none is open.
Store* drawingOrComplaint();

}  // namespace host
