// All groups of the host's own commands.
#include "host/commands/commands.h"

namespace host {

void registerHostCommands() {
    registerDrawingCommands();
    registerEditCommands();
    registerModifyCommands();
    registerClipboardCommands();
    registerUndoCommands();
    registerInquiryCommands();
    registerSettingCommands();
}

}  // namespace host
