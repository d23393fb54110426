// Which keys run which command: the program's, and those that the user has given to commands instead.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/window/KeyStroke.h"
#include "shell/workbench/Settings.h"

namespace scrivanta {

class KeyMap {
 public:
  // Without the user's.
  KeyMap() = default;
  // What makes no sense in the settings, for somebody has edited them, is passed over.
  explicit KeyMap(const Settings& settings);

  // The one that the menu shows stands first.
  std::vector<KeyStroke> KeysOf(std::string_view controlName) const;
  // The first of them as a text, empty when there is none; and all.
  std::u16string ShownKey(std::string_view controlName) const;
  std::u16string AllKeys(std::string_view controlName) const;

  // Gives the command this key in place of those it has; none takes them away. Returns why it may not, to be shown to
  // the user, and changes nothing then; else the empty text.
  std::u16string Assign(std::string_view controlName, std::optional<KeyStroke> key);
  // Gives the command the program's keys back; the same is returned.
  std::u16string Restore(std::string_view controlName);

  void Save(Settings& settings) const;

  friend bool operator==(const KeyMap&, const KeyMap&) = default;

 private:
  std::u16string WhyTaken(std::string_view controlName, const KeyStroke& key) const;

  std::map<std::string, std::optional<KeyStroke>, std::less<>> own_;
};

// The caption without access key and dots, for a list.
std::u16string PlainCaption(std::u16string_view caption);

}  // namespace scrivanta
