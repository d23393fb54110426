// A menu that opens at a place and waits for the user.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace scrivanta {

struct PopupEntry {
  std::u16string text;  // what stands behind a tab is shown at the right edge; "-" alone is a separator
  bool isAvailable = true;
  bool isChecked = false;
};

void AppendEntry(HMENU menu, const PopupEntry& entry, UINT_PTR commandId);

// At a point of the screen; where the menu would leave the screen below, it stands above the point. The entry that was
// chosen, from 0.
std::optional<std::size_t> ChooseFromPopup(HWND owner, POINT at, const std::vector<PopupEntry>& entries);

// Where the menu of a box opens that got WM_CONTEXTMENU with this: at the mouse, or by a key at the corner of the box.
POINT PlaceOfContextMenu(HWND box, LPARAM lParam);

}  // namespace scrivanta
