#include "win/FileDialog.h"

#include <commdlg.h>
#include <shlobj.h>

#include <array>
#include <memory>
#include <string_view>

#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kSingleNameBuffer = 1024;  // characters
constexpr std::size_t kMultipleNameBuffer = 1048576;
constexpr std::size_t kTitleBuffer = 255;

// Labels and patterns, each ended by a NUL, the list by another.
std::wstring FilterList(const FileDialogOptions& options) {
  std::wstring list;
  for (const auto& [label, patterns] : options.filters) {
    list += ToWide(label) + L'\0' + ToWide(patterns) + L'\0';
  }
  return list + L'\0';
}

// What the dialog has left in its name buffer, empty when it was cancelled: one path, or a folder and the names in it,
// each ended by a NUL.
std::wstring Show(HWND owner, const FileDialogOptions& options, std::size_t bufferSize, DWORD flags) {
  const std::wstring filters = FilterList(options);
  const std::wstring title = ToWide(options.title);
  const std::wstring folder = options.initialFolder.wstring();
  std::wstring name = ToWide(options.initialName);
  name.resize(bufferSize, L'\0');
  std::array<wchar_t, kTitleBuffer> fileTitle{};

  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filters.c_str();
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrFileTitle = fileTitle.data();
  dialog.nMaxFileTitle = static_cast<DWORD>(fileTitle.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrTitle = title.c_str();
  // The current folder stays as it is: relative paths must not change their meaning behind the program's back.
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | flags;
  return GetOpenFileNameW(&dialog) != FALSE ? name : std::wstring();
}

struct CoTaskDeleter {
  void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};

// The folder of the last parameter is selected as soon as the dialog for folders is there.
int CALLBACK SelectWhenShown(HWND dialog, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED && *reinterpret_cast<const wchar_t*>(folder) != L'\0') {
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
  }
  return 0;
}

}  // namespace

std::filesystem::path ShowFileDialog(HWND owner, const FileDialogOptions& options) {
  return std::filesystem::path(Show(owner, options, kSingleNameBuffer, 0).c_str());
}

std::vector<std::filesystem::path> ShowMultipleFileDialog(HWND owner, const FileDialogOptions& options) {
  const std::wstring names = Show(owner, options, kMultipleNameBuffer, OFN_ALLOWMULTISELECT);
  std::vector<std::filesystem::path> parts;
  for (std::wstring_view rest = names; !rest.empty() && rest.front() != L'\0';) {
    const std::wstring_view part = rest.substr(0, rest.find(L'\0'));
    parts.emplace_back(part);
    rest.remove_prefix(std::min(rest.size(), part.size() + 1));
  }
  if (parts.size() < 2) {
    return parts;
  }
  std::vector<std::filesystem::path> files;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    files.push_back(parts.front() / parts[i]);
  }
  return files;
}

std::filesystem::path ShowFolderDialog(HWND owner, const std::u16string& title,
                                       const std::filesystem::path& initialFolder) {
  const std::wstring caption = ToWide(title);
  BROWSEINFOW dialog{};
  dialog.hwndOwner = owner;
  dialog.lpszTitle = caption.c_str();
  dialog.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  dialog.lpfn = &SelectWhenShown;
  dialog.lParam = reinterpret_cast<LPARAM>(initialFolder.c_str());
  const std::unique_ptr<ITEMIDLIST, CoTaskDeleter> chosen(SHBrowseForFolderW(&dialog));
  std::wstring path(kSingleNameBuffer, L'\0');
  if (chosen == nullptr ||
      SHGetPathFromIDListEx(chosen.get(), path.data(), static_cast<DWORD>(path.size()), GPFIDL_DEFAULT) == FALSE) {
    return {};
  }
  return std::filesystem::path(path.c_str());
}

}  // namespace scrivanta
