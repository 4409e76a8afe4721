// Switches grouping and keeps the menu items in step.
#include "grouping_mode.h"

#include <string>

#include "document_data.h"
#include "host_guards.h"
#include "platform.h"
#include "VeLogging.h"

namespace {

const wchar_t* const kMenuGroups[] = {L"Morvanta", L"Pelltrix"};
const int kMenuGroupCount = sizeof kMenuGroups / sizeof *kMenuGroups;
const int kMenuGroupLoaded = 1;

/// The first of our menu groups that is loaded; empty when none is.
std::wstring loadedMenuGroup() {
    for (int i = 0; i < kMenuGroupCount; ++i) {
        if (acedIsMenuGroupLoaded(kMenuGroups[i]) == kMenuGroupLoaded) return kMenuGroups[i];
    }
    return std::wstring();
}

/// Sends "G" + menu group + "." + instruction, for one instruction or two; without a menu group of
/// ours nothing is sent.
void sendMenuCommands(const wchar_t* first, const wchar_t* second = nullptr) {
    const std::wstring group = loadedMenuGroup();
    if (group.empty()) return;
    acedMenuCmd((L"G" + group + L"." + first).c_str());
    if (second != nullptr) acedMenuCmd((L"G" + group + L"." + second).c_str());
}

}  // namespace

void showGroupingOn() { sendMenuCommands(L"ID_GRP_ON=~"); }

void groupingOn() {
    docData().m_bActive = true;
    sendMenuCommands(L"ID_GRP_ON=~", L"ID_GRP_OFF=");
    // Grouping widens the pick-first set, so it needs one, whatever the user had set.
    const ResultBuffers on(acutBuildList(RTSHORT, 1, 0));
    acedSetVar(L"PICKFIRST", on.get());
    logCommandUse(L"Active");
}

// Not the mirror image of groupingOn, on purpose: PICKFIRST keeps its value and nothing is logged.
void groupingOff() {
    docData().m_bActive = false;
    sendMenuCommands(L"ID_GRP_OFF=~", L"ID_GRP_ON=");
}
