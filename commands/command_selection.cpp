// Gets the entities that a command works on.
#include "command_selection.h"

Selected selectForCommand(const wchar_t* prompt, OwnedSelection& selection) {
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, selection.name()) == RTNORM) {
        return kPickfirst;
    }
    acutPrintf(L"%s", prompt);
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, selection.name()) == RTNORM) {
        return kSelectedAtPrompt;
    }
    acutPrintf(L"\nNothing selected");
    return kNothingSelected;
}
