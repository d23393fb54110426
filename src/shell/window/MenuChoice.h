// An entry of a menu that is made when it is opened, at a place of the window.
#pragma once

#include <functional>
#include <string>

namespace scrivanta {

struct MenuChoice {
  std::u16string caption;  // "-" is a separator
  std::function<void()> run = nullptr;
  bool isAvailable = true;
  bool isChecked = false;
  std::u16string shortcut = {};

  bool IsSeparator() const noexcept { return caption == u"-"; }
};

}  // namespace scrivanta
