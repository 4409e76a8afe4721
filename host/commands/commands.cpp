// All groups of the host's own commands.
#include "host/commands/commands.h"

namespace host {

void registerHostCommands() {
    registerDrawingCommands();
    registerEditCommands();
    registerInquiryCommands();
    registerSettingCommands();
}

}  // namespace host
