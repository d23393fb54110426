#include "shell/window/ScrivantaDesktop.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <memory>
#include <system_error>

#include <combaseapi.h>
#include <knownfolders.h>

#include "shell/settings/PortableStore.h"
#include "text/Bytes.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/SystemFolders.h"

namespace scrivanta {

namespace {

void Execute(const wchar_t* verb, const std::filesystem::path& file, const std::wstring& arguments) {
  SHELLEXECUTEINFOW order{};
  order.cbSize = sizeof(order);
  // The program shows its own message.
  order.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
  order.lpVerb = verb;
  order.lpFile = file.c_str();
  order.lpParameters = arguments.c_str();
  order.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&order) == FALSE) {
    throw FileError(file, {static_cast<int>(GetLastError()), std::system_category()});
  }
}

std::filesystem::path ExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  while (length == path.size()) {
    path.resize(path.size() * 2);
    length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  }
  if (length == 0) {
    ThrowLastError("GetModuleFileName");
  }
  path.resize(length);
  return path;
}

std::filesystem::path KnownFolder(const KNOWNFOLDERID& id) {
  PWSTR found = nullptr;
  const HRESULT result = SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &found);
  const std::unique_ptr<WCHAR, decltype(&CoTaskMemFree)> path(found, &CoTaskMemFree);
  if (FAILED(result)) {
    throw std::system_error(result, std::system_category(), "SHGetKnownFolderPath");
  }
  return path.get();
}

// A portable copy leaves nothing on the machine.
std::filesystem::path FolderOfUser(const IniFile& iniFile, const std::filesystem::path& name) {
  return IsPortable(iniFile) ? iniFile.path().parent_path() / name
                             : KnownFolder(FOLDERID_LocalAppData) / L"Scrivanta" / name;
}

}  // namespace

void ScrivantaDesktop::OpenWithDefaultProgram(const std::filesystem::path& document) {
  Execute(L"open", document, {});
}

void ScrivantaDesktop::Run(const std::u16string& program, const std::u16string& arguments) {
  Execute(nullptr, program, ToWide(arguments));
}

void ScrivantaDesktop::RunSystemProgram(const std::u16string& fileName, const std::u16string& arguments) {
  Execute(nullptr, SystemProgram(fileName), ToWide(arguments));
}

void ScrivantaDesktop::NoteRecentDocument(const std::filesystem::path& document) {
  // The list takes whole paths only.
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(document, error);
  if (!error) {
    SHAddToRecentDocs(SHARD_PATHW, whole.c_str());
  }
}

std::chrono::local_time<std::chrono::milliseconds> ScrivantaClock::Now() const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const std::chrono::year_month_day date{std::chrono::year{now.wYear}, std::chrono::month{now.wMonth},
                                         std::chrono::day{now.wDay}};
  return std::chrono::local_days{date} + std::chrono::hours{now.wHour} + std::chrono::minutes{now.wMinute} +
         std::chrono::seconds{now.wSecond} + std::chrono::milliseconds{now.wMilliseconds};
}

IniFile FindIniFile() {
  const std::filesystem::path program = ExecutablePath();
  // The user's folder that goes with the user from machine to machine.
  return IniFile::Locate(program.parent_path(), program.stem(), KnownFolder(FOLDERID_RoamingAppData));
}

Folders FindFolders(const IniFile& iniFile) {
  Folders folders;
  folders.iniFile = iniFile.path();
  // Ending in a separator, as commands join names to them.
  folders.program = ExecutablePath().replace_filename(L"");
  folders.temporary = std::filesystem::temp_directory_path() / L"";
  folders.recovery = FolderOfUser(iniFile, L"Recovery");
  folders.notes = FolderOfUser(iniFile, L"Notes");
  return folders;
}

}  // namespace scrivanta
