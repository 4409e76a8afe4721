// Switches grouping and keeps the menu items in step.
#include "grouping_mode.h"

#include <string>

#include "platform.h"

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

void groupingOn() {}

void groupingOff() {}
