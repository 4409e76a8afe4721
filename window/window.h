// A drawing in the person's browser: the room's one entrance.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/application/session.h"
#include "host/store/store.h"
#include "inspection/inspection.h"

namespace window {

/// What the program knows of drawings and the page wants to know too.
struct Reader {
    std::function<std::vector<std::pair<host::Index, std::string>>(const host::Store&)> spaces;
    std::function<inspection::Inspection(AcDbDatabase&)> inspect;
};

struct Setup {
    Reader reader;
    std::string greeting;  ///< first line of the transcript
    bool opensBrowser = true;
    /// Receives the address, as soon as the page can be opened.
    std::function<void(const std::string& address)> ready;
    /// Receives one line for the person at the terminal.
    std::function<void(const std::string& line)> tell;
    /// True when Ctrl+C was pressed since it was last asked.
    std::function<bool()> takeInterrupt;
};

enum class End { Quit, Interrupted, NoPort };

/// Lets a page work on the session until somebody quits, the page is closed with nothing left to
/// save, or Ctrl+C is pressed (twice when there is).
End run(host::Session& session, const Setup& setup);

}  // namespace window
