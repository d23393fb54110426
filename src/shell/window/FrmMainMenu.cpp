#include "shell/window/FrmMainMenu.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "shell/window/MenuTree.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

std::wstring TextWithShortcut(std::u16string_view caption, std::u16string_view shortcut) {
  return shortcut.empty() ? ToWide(caption) : ToWide(caption) + L'\t' + ToWide(shortcut);
}

// "Ctrl+Shift+S", "F3".
std::optional<ACCEL> ParseShortcut(std::u16string_view shortcut, int commandId) {
  if (shortcut.empty()) {
    return std::nullopt;
  }
  ACCEL accelerator{};
  accelerator.fVirt = FVIRTKEY;
  accelerator.cmd = static_cast<WORD>(commandId);
  const auto take = [&shortcut](std::u16string_view prefix) {
    const bool found = shortcut.starts_with(prefix);
    shortcut.remove_prefix(found ? prefix.size() : 0);
    return found;
  };
  if (take(u"Ctrl+")) {
    accelerator.fVirt |= FCONTROL;
  }
  if (take(u"Shift+")) {
    accelerator.fVirt |= FSHIFT;
  }
  if (shortcut.size() == 1) {
    accelerator.key = shortcut.front();  // the virtual key code of a letter is its capital
  } else {
    accelerator.key = static_cast<WORD>(VK_F1 + shortcut[1] - u'1');
  }
  return accelerator;
}

struct OtherKeys {
  const char* controlName;
  BYTE modifier;
  WORD key;
};

// The older keys of the clipboard. The edit control knows them, but its way of copying is not the program's.
constexpr std::array kOtherKeys = {OtherKeys{"mnuCut", FSHIFT, VK_DELETE}, OtherKeys{"mnuCopy", FCONTROL, VK_INSERT},
                                   OtherKeys{"mnuPaste", FSHIFT, VK_INSERT}};

}  // namespace

OwnedMenu BuildMainMenu() {
  OwnedMenu bar(CreateMenu());
  HMENU popup = nullptr;
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kBar) {
      popup = CreatePopupMenu();
      AppendMenuW(bar.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(popup),
                  TextWithShortcut(entry.caption, entry.shortcut).c_str());
    } else if (entry.level == MenuLevel::kEntry) {
      AppendMenuW(popup, entry.IsSeparator() ? MF_SEPARATOR : MF_STRING,
                  static_cast<UINT_PTR>(*MenuCommandId(entry.controlName)),
                  TextWithShortcut(entry.caption, entry.shortcut).c_str());
    }
  }
  return bar;
}

OwnedAccelerators BuildAccelerators() {
  std::vector<ACCEL> accelerators;
  for (const MenuEntry& entry : MenuTree()) {
    if (const auto accelerator = ParseShortcut(entry.shortcut, *MenuCommandId(entry.controlName))) {
      accelerators.push_back(*accelerator);
    }
  }
  for (const OtherKeys& other : kOtherKeys) {
    accelerators.push_back({static_cast<BYTE>(FVIRTKEY | other.modifier), other.key,
                            static_cast<WORD>(*MenuCommandId(other.controlName))});
  }
  return OwnedAccelerators(CreateAcceleratorTableW(accelerators.data(), static_cast<int>(accelerators.size())));
}

void OpenChoices(HWND owner, POINT at, const std::vector<MenuChoice>& choices) {
  const OwnedMenu menu(CreatePopupMenu());
  for (std::size_t i = 0; i < choices.size(); ++i) {
    const MenuChoice& choice = choices[i];
    const UINT flags = choice.IsSeparator() ? MF_SEPARATOR
                                            : MF_STRING | (choice.isAvailable ? MF_ENABLED : MF_GRAYED) |
                                                  (choice.isChecked ? MF_CHECKED : MF_UNCHECKED);
    AppendMenuW(menu.get(), flags, i + 1, TextWithShortcut(choice.caption, choice.shortcut).c_str());
  }
  const int chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, owner, nullptr);
  if (chosen > 0) {
    choices[static_cast<std::size_t>(chosen) - 1].run();
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
