// Menu groups and menu instructions.
#include "host/editor/state/menus.h"

#include <map>
#include <set>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/objectarx/command_line.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

std::set<std::wstring>& groups() {
    static std::set<std::wstring> instance;
    return instance;
}

/// States by "GROUP.ID" in upper case; a missing one is normal.
std::map<std::wstring, std::wstring>& states() {
    static std::map<std::wstring, std::wstring> instance;
    return instance;
}

/// Action "~" greys, "!." checks, both together do both, an empty one makes normal. Items of groups
/// that are not loaded have no state.
void applyToItem(const std::wstring& groupAndId, const std::wstring& action) {
    const std::wstring key = foldCase(groupAndId);
    if (groups().count(key.substr(0, key.find(L'.'))) != 0) states()[key] = action;
}

}  // namespace

void loadMenuGroup(const std::wstring& group) { groups().insert(foldCase(group)); }

std::wstring menuItemState(const std::wstring& groupAndId) {
    const auto found = states().find(foldCase(groupAndId));
    return found == states().end() ? std::wstring() : found->second;
}

void resetMenus() {
    groups().clear();
    states().clear();
}

}  // namespace host

using namespace host;

int acedMenuCmd(const ACHAR* text) {
    if (callFails("acedMenuCmd") || text == nullptr) return RTERROR;
    const std::wstring instruction = text;
    const std::size_t equals = instruction.find(L'=');
    if (equals == std::wstring::npos || equals == 0) return RTERROR;
    recordEffect(EffectKind::MenuCommand, instruction);
    const std::wstring area = instruction.substr(0, equals);
    const bool addressesItem =
        (area[0] == L'G' || area[0] == L'g') && area.find(L'.') != std::wstring::npos;
    if (addressesItem) applyToItem(area.substr(1), instruction.substr(equals + 1));
    return RTNORM;
}

int acedIsMenuGroupLoaded(const ACHAR* name) {
    if (callFails("acedIsMenuGroupLoaded") || name == nullptr) return 0;
    return groups().count(foldCase(name)) != 0 ? 1 : 0;
}
