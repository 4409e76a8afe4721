// The editor as one service of the session: registered once, put back to its first state.
#include "host/editor/run/editor_services.h"

#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/state/notify.h"
#include "host/objectarx/command_stack.h"
#include "host/objectarx/editor.h"
#include "host/objects/system_registry.h"

namespace host {

void resetEditor() {
    editorReactors().detachAll();
    clearModuleCommands();
    resetSelectionSets();
    inputSource() = nullptr;
}

void registerEditorServices() {
    static AcEditor editor;
    registerService(L"AcEditor", &editor);
    registerService(L"ACAD_REGISTERED_COMMANDS", acedRegCmdsPtr());
}

}  // namespace host
