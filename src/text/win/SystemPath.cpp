#include "text/win/SystemPath.h"

#include <windows.h>

#include <string_view>

namespace scrivanta {

namespace {

// Longer paths are taken only with the prefix that turns off all rewriting. A folder must leave room for a file name.
constexpr std::size_t kMostPlainPath = 247;

}  // namespace

std::wstring SystemPath(const std::filesystem::path& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  if (full.empty() || full.size() <= kMostPlainPath || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) {
    return full.empty() ? path.native() : full;
  }
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace scrivanta
