// All groups of the host's own commands.
#include "host/commands/commands.h"

namespace host {

void registerHostCommands() {
    registerFigureCommands();
    registerSelectionCommands();
    registerTransformCommands();
    registerClipboardCommands();
    registerUndoCommands();
    registerInquiryCommands();
    registerSettingCommands();
    registerViewCommands();
}

}  // namespace host
