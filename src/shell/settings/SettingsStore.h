// The settings of the program: the registry-backed store and the ini file behind one interface, and the encoding of
// line breaks that both share.
#pragma once

#include "shell/settings/IniFile.h"
#include "shell/settings/RegistryStore.h"
#include "shell/workbench/Settings.h"

namespace scrivanta {

class SettingsStore final : public Settings {
 public:
  SettingsStore(RegistryStore& registry, IniFile iniFile) : registry_(registry), iniFile_(std::move(iniFile)) {}

  // Throws FileError or std::system_error.
  void Save(std::u16string_view key, std::u16string_view value, Store store = Store::kRegistry,
            std::u16string_view section = kFormSection) override;
  void SaveAll(const SettingEntries& entries, Store store = Store::kRegistry,
               std::u16string_view section = kFormSection) override;
  std::optional<std::u16string> Find(std::u16string_view key, Store store = Store::kRegistry,
                                     std::u16string_view section = kFormSection) const override;
  SettingEntries Entries(Store store = Store::kRegistry, std::u16string_view section = kFormSection) const override;
  std::optional<std::u16string> RegistryKeyOf(std::u16string_view section) const override {
    return registry_.KeyOf(section);
  }

  const IniFile& iniFile() const noexcept { return iniFile_; }

 private:
  RegistryStore& registry_;
  IniFile iniFile_;
};

}  // namespace scrivanta
