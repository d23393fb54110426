// Whether the program's windows are light or dark.
#pragma once

namespace scrivanta {

enum class ColourChoice { kLikeSystem, kLight, kDark };

// What the user has chosen for all programs.
struct SystemTaste {
  bool isDark = false;
  bool isHighContrast = false;  // the system's colours are never changed then
};

constexpr bool IsDark(ColourChoice choice, const SystemTaste& system) {
  return !system.isHighContrast &&
         (choice == ColourChoice::kDark || (choice == ColourChoice::kLikeSystem && system.isDark));
}

}  // namespace scrivanta
