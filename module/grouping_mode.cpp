// Switches grouping and keeps the menu items in step.
#include "grouping_mode.h"

#include <initializer_list>
#include <string>

#include "document_data.h"
#include "host_guards.h"
#include "platform.h"
#include "VeLogging.h"

namespace {

constexpr const wchar_t* kMenuGroups[] = {L"Morvanta", L"Pelltrix"};
constexpr int kMenuGroupLoaded = 1;

/// Sends "G" + menu group + "." + each instruction for the first of our menu groups that is loaded;
/// without one nothing is sent.
void sendMenuCommands(std::initializer_list<const wchar_t*> instructions) {
    for (const std::wstring group : kMenuGroups) {
        if (acedIsMenuGroupLoaded(group.c_str()) != kMenuGroupLoaded) continue;
        for (const wchar_t* instruction : instructions) {
            acedMenuCmd((L"G" + group + L"." + instruction).c_str());
        }
        return;
    }
}

}  // namespace

void showGroupingOn() { sendMenuCommands({L"ID_GRP_ON=~"}); }

void groupingOn() {
    docData().m_bActive = true;
    sendMenuCommands({L"ID_GRP_ON=~", L"ID_GRP_OFF="});
    // Grouping widens the pick-first set, so it needs one, whatever the user had set.
    const ResultBuffers on(acutBuildList(RTSHORT, 1, 0));
    acedSetVar(L"PICKFIRST", on.get());
    logCommandUse(L"Active");
}

// Not the mirror image of groupingOn, on purpose: PICKFIRST keeps its value and nothing is logged.
void groupingOff() {
    docData().m_bActive = false;
    sendMenuCommands({L"ID_GRP_OFF=~", L"ID_GRP_ON="});
}
