// The menu that opens in the edit box.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/window/MenuChoice.h"

namespace scrivanta {

struct EditBoxMenu {
  std::function<bool(std::string_view controlName)> isAvailable;
  std::function<std::u16string(std::string_view controlName)> shortcut;
  std::function<void(std::string_view controlName)> run;

  // The clipboard, finding what is selected, and the commands on lines used last.
  std::vector<MenuChoice> Choices(const std::vector<std::string>& recentCommands) const;
};

}  // namespace scrivanta
