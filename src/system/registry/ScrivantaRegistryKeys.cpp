#include "system/registry/ScrivantaRegistryKeys.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "text/win/WideText.h"
#include "win/Handles.h"

namespace scrivanta {

namespace {

// In the order of RegistryRoots().
const std::array kRootHandles = {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS,
                                 HKEY_CURRENT_CONFIG};

constexpr DWORD kLongestKeyName = 256;      // characters, with the closing one; of the platform
constexpr DWORD kLongestValueName = 16384;  // likewise

void Check(LSTATUS status, const std::u16string& key) {
  if (status != ERROR_SUCCESS) {
    throw RegistryError(key, std::error_code(static_cast<int>(status), std::system_category()));
  }
}

HKEY RootOf(const std::u16string& key) {
  const std::vector<std::u16string>& roots = RegistryRoots();
  const auto root = std::ranges::find(roots, key.substr(0, key.find(u'\\')));
  return root == roots.end() ? nullptr : kRootHandles[static_cast<std::size_t>(root - roots.begin())];
}

std::wstring BelowRoot(const std::u16string& key) {
  return IsRegistryRoot(key) ? std::wstring() : ToWide(key.substr(key.find(u'\\') + 1));
}

OwnedRegistryKey Open(const std::u16string& key, REGSAM access) {
  HKEY opened = nullptr;
  Check(RegOpenKeyExW(RootOf(key), BelowRoot(key).c_str(), 0, access, &opened), key);
  return OwnedRegistryKey(opened);
}

// False where there is no further one.
bool ReadValue(HKEY opened, DWORD index, const std::u16string& key, RegistryValue& value) {
  std::wstring name(kLongestValueName, L'\0');
  value.bytes.resize(value.bytes.capacity());
  for (;;) {
    auto nameLength = kLongestValueName;
    auto size = static_cast<DWORD>(value.bytes.size());
    DWORD type = REG_NONE;
    const LSTATUS status = RegEnumValueW(opened, index, name.data(), &nameLength, nullptr, &type,
                                         reinterpret_cast<BYTE*>(value.bytes.data()), &size);
    if (status == ERROR_NO_MORE_ITEMS) {
      return false;
    }
    if (status == ERROR_MORE_DATA) {
      value.bytes.resize(std::max<std::size_t>(size, 2 * value.bytes.size()));
      continue;
    }
    Check(status, key);
    value.bytes.resize(size);
    value.name = FromWide({name.data(), nameLength});
    value.type = static_cast<RegistryType>(type);
    return true;
  }
}

}  // namespace

bool ScrivantaRegistryKeys::Has(const std::u16string& key) const {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(RootOf(key), BelowRoot(key).c_str(), 0, KEY_READ, &opened);
  const OwnedRegistryKey owner(opened);
  if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) {
    return false;
  }
  Check(status, key);
  return true;
}

std::vector<std::u16string> ScrivantaRegistryKeys::Subkeys(const std::u16string& key) const {
  const OwnedRegistryKey opened = Open(key, KEY_READ);
  std::vector<std::u16string> names;
  std::array<wchar_t, kLongestKeyName> name{};
  for (DWORD index = 0;; ++index) {
    DWORD length = kLongestKeyName;
    const LSTATUS status = RegEnumKeyExW(opened.get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_NO_MORE_ITEMS) {
      return names;
    }
    Check(status, key);
    names.push_back(FromWide({name.data(), length}));
  }
}

std::vector<RegistryValue> ScrivantaRegistryKeys::Values(const std::u16string& key) const {
  const OwnedRegistryKey opened = Open(key, KEY_READ);
  std::vector<RegistryValue> values;
  RegistryValue value;
  value.bytes.resize(MAX_PATH);
  for (DWORD index = 0; ReadValue(opened.get(), index, key, value); ++index) {
    values.push_back(value);
  }
  return values;
}

void ScrivantaRegistryKeys::Create(const std::u16string& key) {
  HKEY opened = nullptr;
  Check(RegCreateKeyExW(RootOf(key), BelowRoot(key).c_str(), 0, nullptr, 0, KEY_READ, nullptr, &opened, nullptr), key);
  const OwnedRegistryKey owner(opened);
}

void ScrivantaRegistryKeys::Delete(const std::u16string& key) {
  if (Has(key) && !IsRegistryRoot(key)) {
    Check(RegDeleteTreeW(RootOf(key), BelowRoot(key).c_str()), key);
  }
}

void ScrivantaRegistryKeys::SetValue(const std::u16string& key, const RegistryValue& value) {
  const OwnedRegistryKey opened = Open(key, KEY_SET_VALUE);
  Check(RegSetValueExW(opened.get(), ToWide(value.name).c_str(), 0, static_cast<DWORD>(value.type),
                       reinterpret_cast<const BYTE*>(value.bytes.data()), static_cast<DWORD>(value.bytes.size())),
        key);
}

void ScrivantaRegistryKeys::DeleteValue(const std::u16string& key, const std::u16string& name) {
  if (!Has(key)) {
    return;
  }
  const OwnedRegistryKey opened = Open(key, KEY_SET_VALUE);
  const LSTATUS status = RegDeleteValueW(opened.get(), ToWide(name).c_str());
  if (status != ERROR_FILE_NOT_FOUND) {
    Check(status, key);
  }
}

}  // namespace scrivanta
