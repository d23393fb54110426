// The commands on lines that were used last, for the menu of the edit box.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "shell/workbench/Settings.h"

namespace scrivanta {

class RecentCommands {
 public:
  static constexpr std::size_t kMost = 5;

  explicit RecentCommands(Settings& settings) : settings_(settings) {}

  // The one used last stands first.
  std::vector<std::string> List() const;
  // Keeps a command of the menu of lines; others are passed over.
  void Note(std::string_view controlName);

 private:
  Settings& settings_;
};

}  // namespace scrivanta
