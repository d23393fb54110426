// The registry-backed settings of the program: texts under the program's title, a section and a key. On Windows each
// section is a registry key of the user's, tests keep a map.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Settings.h"
#include "text/Interface.h"

namespace scrivanta {

class RegistryStore : public Interface {
 public:
  // Nothing when the key is absent. The value is as it was stored: line breaks are the caller's business.
  virtual std::optional<std::u16string> Read(std::u16string_view section, std::u16string_view key) const = 0;
  // Throws std::system_error when it cannot be stored.
  virtual void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) = 0;
  // All values of the section.
  virtual SettingEntries ReadAll(std::u16string_view section) const = 0;
  // As Write for each of them.
  virtual void WriteAll(std::u16string_view section, const SettingEntries& entries) {
    for (const auto& [key, value] : entries) {
      Write(section, key, value);
    }
  }
  // The registry key of a section, from its root on; nothing when there is none.
  virtual std::optional<std::u16string> KeyOf(std::u16string_view) const { return std::nullopt; }
};

}  // namespace scrivanta
