// Menu groups and the state of their items.
#pragma once

#include <string>

namespace host {

/// Makes a menu group count as loaded.
void loadMenuGroup(const std::wstring& group);
/// State of an item addressed as "Group.Id": "~" greyed, "!." checked, empty normal.
std::wstring menuItemState(const std::wstring& groupAndId);
/// Forgets groups and states.
void resetMenus();

}  // namespace host
