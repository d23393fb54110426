// The menus of the main window: the bar, built from shell/MenuTree.h, and those that open at a place.
#pragma once

#include <windows.h>

#include <functional>
#include <string_view>
#include <vector>

#include "shell/window/KeyMap.h"
#include "shell/window/MenuChoice.h"
#include "win/Handles.h"

namespace scrivanta {

OwnedMenu BuildMainMenu(const KeyMap& keys);
OwnedAccelerators BuildAccelerators(const KeyMap& keys);
// Shows other keys in the bar's menus.
void ShowKeys(HMENU bar, const KeyMap& keys);

// Puts entries behind those that a menu has had from the beginning, in place of what it had there.
void ShowBehind(HMENU popup, int ownEntries, const std::vector<MenuChoice>& choices, int firstCommandId);

// Enables those entries of the bar's menus whose command is available now.
void EnableMenuEntries(HMENU bar, const std::function<bool(std::string_view controlName)>& isAvailable);

// Opens a menu at a point of the screen, waits for the user and runs what is chosen.
void OpenChoices(HWND owner, POINT at, const std::vector<MenuChoice>& choices);

}  // namespace scrivanta
