#include "win/PopupMenu.h"

#include <windowsx.h>

#include "text/win/WideText.h"
#include "win/Handles.h"

namespace scrivanta {

void AppendEntry(HMENU menu, const PopupEntry& entry, UINT_PTR commandId) {
  const UINT flags = entry.text == u"-" ? MF_SEPARATOR
                                        : MF_STRING | (entry.isAvailable ? MF_ENABLED : MF_GRAYED) |
                                              (entry.isChecked ? MF_CHECKED : MF_UNCHECKED);
  AppendMenuW(menu, flags, commandId, ToWide(entry.text).c_str());
}

std::optional<std::size_t> ChooseFromPopup(HWND owner, POINT at, const std::vector<PopupEntry>& entries) {
  const OwnedMenu menu(CreatePopupMenu());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    AppendEntry(menu.get(), entries[i], i + 1);
  }
  const int chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD, at.x, at.y, 0, GetAncestor(owner, GA_ROOT), nullptr);
  return chosen > 0 ? std::optional(static_cast<std::size_t>(chosen) - 1) : std::nullopt;
}

POINT PlaceOfContextMenu(HWND box, LPARAM lParam) {
  POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  if (lParam == -1) {
    at = {};
    ClientToScreen(box, &at);
  }
  return at;
}

}  // namespace scrivanta
