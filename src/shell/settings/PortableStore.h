// The registry-backed settings of a portable copy, which leaves nothing in the registry of the machine: they stand in
// the ini file, each section under the name "Portable." and its own.
#pragma once

#include "shell/settings/IniFile.h"
#include "shell/settings/RegistryStore.h"

namespace scrivanta {

// Whether the ini file says so: section "Portable", "SettingsHere = 1". One that cannot be read does not: the program
// starts all the same.
bool IsPortable(const IniFile& iniFile);

class PortableStore final : public RegistryStore {
 public:
  explicit PortableStore(IniFile iniFile) : iniFile_(std::move(iniFile)) {}

  // Throw FileError.
  std::optional<std::u16string> Read(std::u16string_view section, std::u16string_view key) const override;
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override;
  SettingEntries ReadAll(std::u16string_view section) const override;
  void WriteAll(std::u16string_view section, const SettingEntries& entries) override;

 private:
  IniFile iniFile_;
};

}  // namespace scrivanta
