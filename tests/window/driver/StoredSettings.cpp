#include "window/driver/StoredSettings.h"

#include <windows.h>

#include "win/Registry.h"

namespace scrivanta {

namespace {

constexpr char16_t kRoot[] = u"Software\\Scrivanta\\";

}  // namespace

std::optional<std::u16string> StoredSetting(const std::u16string& key, const std::u16string& section) {
  return ReadRegistryText(kRoot + section, key);
}

void StoreSetting(const std::u16string& key, const std::u16string& value, const std::u16string& section) {
  WriteRegistryText(kRoot + section, key, value);
}

void ForgetSettings() {
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Scrivanta");
}

}  // namespace scrivanta
