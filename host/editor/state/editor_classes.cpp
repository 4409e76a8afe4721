// Run-time class descriptors of the editor's classes.
#include "host/objectarx/command_stack.h"
#include "host/objectarx/editor.h"

#define HOST_EDITOR_CLASS(CLASS, PARENT)                         \
    AcRxClass* CLASS::desc() {                                   \
        static AcRxClass descriptor(L## #CLASS, PARENT::desc()); \
        return &descriptor;                                      \
    }                                                            \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }

HOST_EDITOR_CLASS(AcRxEventReactor, AcRxObject)
HOST_EDITOR_CLASS(AcEditorReactor, AcRxEventReactor)
HOST_EDITOR_CLASS(AcRxEvent, AcRxObject)
HOST_EDITOR_CLASS(AcEditor, AcRxEvent)
HOST_EDITOR_CLASS(AcEdCommandStack, AcRxObject)
