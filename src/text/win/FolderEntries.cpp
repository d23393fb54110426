#include "text/FolderEntries.h"

#include <windows.h>

#include <string_view>

#include "text/win/Handles.h"
#include "text/win/SystemPath.h"

namespace scrivanta {

namespace {

struct FindTraits {
  using Type = HANDLE;
  static HANDLE Invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) noexcept { FindClose(handle); }
};

// Not every file with the mark of a reparse point is a link: one that is kept elsewhere for the time being is a file.
FolderEntryKind KindOf(const WIN32_FIND_DATAW& found) {
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                      (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
  if (isFolder) {
    return isLink ? FolderEntryKind::kLinkToFolder : FolderEntryKind::kFolder;
  }
  return FolderEntryKind::kFile;
}

std::error_code LastError() {
  const DWORD code = GetLastError();
  // The root of an empty disk has not even the entry that stands for itself.
  const bool isEnd = code == ERROR_NO_MORE_FILES || code == ERROR_FILE_NOT_FOUND;
  return isEnd ? std::error_code() : std::error_code(static_cast<int>(code), std::system_category());
}

}  // namespace

std::error_code VisitFolder(const std::filesystem::path& folder,
                            const std::function<void(const std::filesystem::path&, FolderEntryKind)>& visit) {
  WIN32_FIND_DATAW found{};
  const std::wstring pattern = SystemPath(folder / L"*");
  const Owner<FindTraits> search(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                                  nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!search) {
    return LastError();
  }
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") {
      visit(folder / name, KindOf(found));
    }
  } while (FindNextFileW(search.get(), &found) != FALSE);
  return LastError();
}

}  // namespace scrivanta
