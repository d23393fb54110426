#include "win/Registry.h"

#include <windows.h>

#include <system_error>

#include "text/win/WideText.h"
#include "win/Handles.h"

namespace scrivanta {

namespace {

void Check(LSTATUS status, const char* call) {
  if (status != ERROR_SUCCESS) {
    throw std::system_error(static_cast<int>(status), std::system_category(), call);
  }
}

OwnedRegistryKey OpenKey(const std::u16string& key, REGSAM access) {
  HKEY opened = nullptr;
  RegOpenKeyExW(HKEY_CURRENT_USER, ToWide(key).c_str(), 0, access, &opened);
  return OwnedRegistryKey(opened);
}

}  // namespace

std::optional<std::u16string> ReadRegistryText(const std::u16string& key, const std::u16string& name) {
  const std::wstring path = ToWide(key);
  const std::wstring valueName = ToWide(name);
  DWORD bytes = 0;
  LSTATUS status =
      RegGetValueW(HKEY_CURRENT_USER, path.c_str(), valueName.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
  std::wstring text;
  // Another instance may lengthen the value between asking for its size and reading it.
  while (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {
    text.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status =
        RegGetValueW(HKEY_CURRENT_USER, path.c_str(), valueName.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    if (status == ERROR_SUCCESS) {
      return FromWide(text.c_str());
    }
  }
  return std::nullopt;
}

void WriteRegistryText(const std::u16string& key, const std::u16string& name, const std::u16string& value) {
  HKEY opened = nullptr;
  Check(
      RegCreateKeyExW(HKEY_CURRENT_USER, ToWide(key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr),
      "RegCreateKeyEx");
  const OwnedRegistryKey owner(opened);
  const std::wstring text = ToWide(value);
  Check(RegSetValueExW(opened, ToWide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
        "RegSetValueEx");
}

std::vector<std::u16string> RegistryValueNames(const std::u16string& key) {
  constexpr DWORD kLongestName = 16384;  // characters, of the platform
  std::vector<std::u16string> names;
  const OwnedRegistryKey opened = OpenKey(key, KEY_QUERY_VALUE);
  std::wstring name(kLongestName, L'\0');
  for (DWORD i = 0; opened; ++i) {
    DWORD length = kLongestName;
    if (RegEnumValueW(opened.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
      break;
    }
    names.push_back(FromWide({name.data(), length}));
  }
  return names;
}

void DeleteRegistryValue(const std::u16string& key, const std::u16string& name) {
  const OwnedRegistryKey opened = OpenKey(key, KEY_SET_VALUE);
  if (!opened) {
    return;
  }
  const LSTATUS status = RegDeleteValueW(opened.get(), ToWide(name).c_str());
  if (status != ERROR_FILE_NOT_FOUND) {
    Check(status, "RegDeleteValue");
  }
}

}  // namespace scrivanta
