#include "win/SystemFolders.h"

#include <windows.h>

#include "text/win/PlatformError.h"

namespace scrivanta {

namespace {

// One of the functions that put the path of a folder into a buffer.
std::filesystem::path FolderOf(UINT(WINAPI* ask)(LPWSTR, UINT), const char* name) {
  std::wstring folder(ask(nullptr, 0), L'\0');
  folder.resize(ask(folder.data(), static_cast<UINT>(folder.size())));
  if (folder.empty()) {
    ThrowLastError(name);
  }
  return folder;
}

}  // namespace

std::filesystem::path SystemFolder() {
  return FolderOf(&GetSystemDirectoryW, "GetSystemDirectory");
}

std::filesystem::path SystemProgram(const std::u16string& fileName) {
  std::filesystem::path program = SystemFolder() / fileName;
  if (GetFileAttributesW(program.c_str()) == INVALID_FILE_ATTRIBUTES) {
    const std::filesystem::path around = FolderOf(&GetSystemWindowsDirectoryW, "GetSystemWindowsDirectory") / fileName;
    if (GetFileAttributesW(around.c_str()) != INVALID_FILE_ATTRIBUTES) {
      program = around;
    }
  }
  return program;
}

void CloseLibrarySearch() {
  if (SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) == FALSE || SetDllDirectoryW(L"") == FALSE) {
    ThrowLastError("SetDefaultDllDirectories");
  }
}

}  // namespace scrivanta
