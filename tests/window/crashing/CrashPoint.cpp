// The program that ends itself at the moment it is told: SCRIVANTA_CRASH_LOG names a file that gets the name of each
// moment it passes, a line each, and SCRIVANTA_CRASH_AT the moment, counted from 1, that it does not survive.
#include "text/CrashPoint.h"

#include <windows.h>

#include <array>
#include <cstdlib>
#include <string>

#include "win/Handles.h"

namespace scrivanta {

namespace {

constexpr UINT kCrashed = 98;

std::wstring Variable(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> value{};
  return {value.data(), GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()))};
}

void Note(const std::string& line) {
  const OwnedFile log(CreateFileW(Variable(L"SCRIVANTA_CRASH_LOG").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  WriteFile(log.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace

void PassCrashPoint(const char* name) noexcept {
  static int passed = 0;
  Note(std::string(name) + "\n");
  if (++passed == _wtoi(Variable(L"SCRIVANTA_CRASH_AT").c_str())) {
    TerminateProcess(GetCurrentProcess(), kCrashed);
  }
}

}  // namespace scrivanta
