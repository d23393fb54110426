#include "shell/window/KeysDialog.h"

#include <algorithm>
#include <utility>

#include "shell/window/MenuTree.h"

namespace scrivanta {

namespace {

constexpr std::string_view kMenuOfLines = "mnuTreat";

}  // namespace

// The commands on lines stand first: they are many, and have no keys of the program.
KeysDialog::KeysDialog(KeyMap keys) : keys_(std::move(keys)) {
  std::u16string menu;
  std::size_t ofLines = 0;
  bool isOfLines = false;
  for (const MenuEntry& entry : MenuTree()) {
    if (entry.level == MenuLevel::kBar) {
      menu = PlainCaption(entry.caption);
      isOfLines = entry.controlName == kMenuOfLines;
    } else if (!entry.IsSeparator()) {
      const bool isShown = entry.level == MenuLevel::kEntry;
      const auto place =
          isOfLines && isShown ? commands_.begin() + static_cast<std::ptrdiff_t>(ofLines++) : commands_.end();
      commands_.insert(place, {isShown ? menu : u"（不在菜单里）", entry.controlName, entry.caption});
    }
  }
}

std::vector<std::vector<std::u16string>> KeysDialog::Rows() const {
  std::vector<std::vector<std::u16string>> rows;
  for (const Row& row : commands_) {
    rows.push_back({row.menu, PlainCaption(row.caption), keys_.AllKeys(row.controlName)});
  }
  return rows;
}

std::u16string KeysDialog::Assign(std::size_t row, const KeyStroke& key) {
  return keys_.Assign(commands_.at(row).controlName, key);
}

std::u16string KeysDialog::Clear(std::size_t row) {
  return keys_.Assign(commands_.at(row).controlName, std::nullopt);
}

std::u16string KeysDialog::Restore(std::size_t row) {
  return keys_.Restore(commands_.at(row).controlName);
}

}  // namespace scrivanta
