#include "shell/settings/ScrivantaRegistry.h"

#include "win/Registry.h"

namespace scrivanta {

ScrivantaRegistry::ScrivantaRegistry(std::u16string_view programTitle)
    : root_(u"Software\\" + std::u16string(programTitle) + u"\\") {}

std::optional<std::u16string> ScrivantaRegistry::Read(std::u16string_view section, std::u16string_view key) const {
  return ReadRegistryText(root_ + std::u16string(section), std::u16string(key));
}

void ScrivantaRegistry::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  WriteRegistryText(root_ + std::u16string(section), std::u16string(key), std::u16string(value));
}

SettingEntries ScrivantaRegistry::ReadAll(std::u16string_view section) const {
  const std::u16string key = root_ + std::u16string(section);
  SettingEntries entries;
  for (const std::u16string& name : RegistryValueNames(key)) {
    if (const std::optional<std::u16string> value = ReadRegistryText(key, name)) {
      entries.emplace(name, *value);
    }
  }
  return entries;
}

std::optional<std::u16string> ScrivantaRegistry::KeyOf(std::u16string_view section) const {
  return u"HKEY_CURRENT_USER\\" + root_ + std::u16string(section);
}

}  // namespace scrivanta
