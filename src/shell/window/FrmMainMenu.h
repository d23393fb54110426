// The menu bar of the main window, built from shell/MenuTree.h.
#pragma once

#include <windows.h>

#include <functional>
#include <string_view>

#include "win/Handles.h"

namespace scrivanta {

OwnedMenu BuildMainMenu();
OwnedAccelerators BuildAccelerators();

// Enables those entries of the bar's menus whose command is available now.
void EnableMenuEntries(HMENU bar, const std::function<bool(std::string_view controlName)>& isAvailable);

}  // namespace scrivanta
