#include "text/EnvironmentText.h"

#include <windows.h>

#include <cstdlib>

namespace scrivanta {

std::optional<std::u16string> EnvironmentText(std::u16string_view name) {
  const wchar_t* const value = _wgetenv(std::wstring(name.begin(), name.end()).c_str());
  return value == nullptr ? std::nullopt : std::optional<std::u16string>(reinterpret_cast<const char16_t*>(value));
}

}  // namespace scrivanta
