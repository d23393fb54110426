// What a shortcut (.lnk) says.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "text/Interface.h"

namespace scrivanta {

// How the window of the program opens; the numbers are the system's.
enum class ShortcutWindow { kNormal = 1, kMaximised = 3, kMinimised = 7 };

struct Shortcut {
  std::u16string target = {};  // may hold %VARIABLES%; empty where it is no file
  std::u16string arguments = {};
  std::u16string folder = {};  // in which the program starts
  std::u16string iconFile = {};
  int iconIndex = 0;
  std::uint16_t hotKey = 0;  // the key, and above it the keys that are held: 1 Shift, 2 Ctrl, 4 Alt
  ShortcutWindow window = ShortcutWindow::kNormal;
  std::u16string description = {};

  friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

class ShortcutStore : public Interface {
 public:
  // Throws FileError, also for a file that is no shortcut.
  virtual Shortcut Read(const std::filesystem::path& file) const = 0;
  // Makes the file, or changes what the shortcut says and keeps the rest of it. Throws FileError.
  virtual void Write(const std::filesystem::path& file, const Shortcut& shortcut) const = 0;
};

// "Ctrl+Alt+K", "Ctrl+Shift+F5"; empty for none.
std::u16string HotKeyText(std::uint16_t hotKey);
// Nothing for what is no such key.
std::optional<std::uint16_t> ParseHotKey(std::u16string_view text);

// "C:\a.dll,3"; the file alone for its first icon.
std::u16string IconText(const Shortcut& shortcut);
void SetIconText(Shortcut& shortcut, std::u16string_view text);

}  // namespace scrivanta
