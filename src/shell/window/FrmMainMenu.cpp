#include "shell/window/FrmMainMenu.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "shell/window/MenuTree.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/PopupMenu.h"

namespace scrivanta {

namespace {

std::u16string TextWithShortcut(std::u16string_view caption, const std::u16string& shortcut) {
  return shortcut.empty() ? std::u16string(caption) : std::u16string(caption) + u'\t' + shortcut;
}

PopupEntry EntryOf(const MenuChoice& choice) {
  return {TextWithShortcut(choice.caption, choice.shortcut), choice.isAvailable, choice.isChecked};
}

}  // namespace

OwnedMenu BuildMainMenu(const KeyMap& keys) {
  OwnedMenu bar(CreateMenu());
  HMENU popup = nullptr;
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kBar) {
      popup = CreatePopupMenu();
      AppendMenuW(bar.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(popup), ToWide(entry.caption).c_str());
    } else if (entry.level == MenuLevel::kEntry) {
      AppendEntry(popup, {.text = TextWithShortcut(entry.caption, keys.ShownKey(entry.controlName))},
                  static_cast<UINT_PTR>(*MenuCommandId(entry.controlName)));
    }
  }
  return bar;
}

OwnedAccelerators BuildAccelerators(const KeyMap& keys) {
  std::vector<ACCEL> accelerators;
  for (const MenuEntry& entry : MenuTree()) {
    for (const KeyStroke& key : keys.KeysOf(entry.controlName)) {
      const auto modifiers = (key.ctrl ? FCONTROL : 0) | (key.shift ? FSHIFT : 0);
      accelerators.push_back(
          {static_cast<BYTE>(FVIRTKEY | modifiers), key.code, static_cast<WORD>(*MenuCommandId(entry.controlName))});
    }
  }
  return OwnedAccelerators(CreateAcceleratorTableW(accelerators.data(), static_cast<int>(accelerators.size())));
}

void ShowKeys(HMENU bar, const KeyMap& keys) {
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kEntry && !entry.IsSeparator()) {
      std::wstring text = ToWide(TextWithShortcut(entry.caption, keys.ShownKey(entry.controlName)));
      MENUITEMINFOW item{};
      item.cbSize = sizeof(item);
      item.fMask = MIIM_STRING;
      item.dwTypeData = text.data();
      SetMenuItemInfoW(bar, static_cast<UINT>(*MenuCommandId(entry.controlName)), FALSE, &item);
    }
  }
}

void ShowBehind(HMENU popup, int ownEntries, const std::vector<MenuChoice>& choices, int firstCommandId) {
  while (GetMenuItemCount(popup) > ownEntries) {
    DeleteMenu(popup, static_cast<UINT>(ownEntries), MF_BYPOSITION);
  }
  for (std::size_t i = 0; i < choices.size(); ++i) {
    AppendEntry(popup, EntryOf(choices[i]), static_cast<UINT_PTR>(firstCommandId) + i);
  }
}

void OpenChoices(HWND owner, POINT at, const std::vector<MenuChoice>& choices) {
  std::vector<PopupEntry> entries;
  std::ranges::transform(choices, std::back_inserter(entries), &EntryOf);
  if (const std::optional<std::size_t> chosen = ChooseFromPopup(owner, at, entries)) {
    choices[*chosen].run();
  }
}

void EnableMenuEntries(HMENU bar, const std::function<bool(std::string_view controlName)>& isAvailable) {
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kEntry && !entry.IsSeparator()) {
      EnableMenuItem(bar, static_cast<UINT>(*MenuCommandId(entry.controlName)),
                     isAvailable(entry.controlName) ? MF_ENABLED : MF_GRAYED);
    }
  }
}

}  // namespace scrivanta
