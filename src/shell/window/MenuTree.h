// The menu of the main window as data: FrmMain builds it, tests and the check of the help document read it.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace scrivanta {

inline constexpr int kFirstMenuCommandId = 40001;

enum class MenuLevel {
  kBar,
  kEntry,
  kKeysOnly,  // not shown: the shortcut alone runs the command
};

struct MenuEntry {
  std::string_view controlName;
  std::u16string_view caption;  // without the shortcut; "-" is a separator
  MenuLevel level = MenuLevel::kEntry;
  std::u16string_view shortcut = {};       // as shown: "Ctrl+Shift+S", "F3"
  std::u16string_view olderShortcut = {};  // another one, not shown in the menu

  bool IsSeparator() const noexcept { return caption == u"-"; }
};

// In the order of the menu: an entry of the bar is followed by the entries below it. At the end, those of keys only.
std::span<const MenuEntry> MenuTree();

// Whether the command does nothing but change the document: in one that is read-only it is not there to be chosen.
bool ChangesDocument(std::string_view controlName);

// What the window is sent when the entry is chosen.
std::optional<int> MenuCommandId(std::string_view controlName);
const MenuEntry* MenuEntryOf(int commandId);

}  // namespace scrivanta
