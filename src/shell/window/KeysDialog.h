// The window that gives keys to commands, without its controls.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/window/KeyMap.h"

namespace scrivanta {

class KeysDialog {
 public:
  explicit KeysDialog(KeyMap keys);

  // Menu, command and keys, a row each.
  std::vector<std::vector<std::u16string>> Rows() const;
  std::size_t rowCount() const noexcept { return commands_.size(); }

  // Of a row; each returns what to tell the user, empty when it was done.
  std::u16string Assign(std::size_t row, const KeyStroke& key);
  std::u16string Clear(std::size_t row);
  std::u16string Restore(std::size_t row);

  const KeyMap& keys() const noexcept { return keys_; }

 private:
  struct Row {
    std::u16string menu;
    std::string_view controlName;
    std::u16string_view caption;
  };

  KeyMap keys_;
  std::vector<Row> commands_;
};

}  // namespace scrivanta
