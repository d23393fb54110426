// The platform's dialogs for choosing a file and a folder.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace scrivanta {

struct FileDialogOptions {
  std::u16string title;
  std::vector<std::pair<std::u16string, std::u16string>> filters;  // label and patterns ("*.txt;*.rtf")
  std::filesystem::path initialFolder;
  std::u16string initialName;
};

// The full path that was chosen or typed, which need not exist; empty when the dialog was cancelled or failed.
std::filesystem::path ShowFileDialog(HWND owner, const FileDialogOptions& options);

// The same with several files to choose.
std::vector<std::filesystem::path> ShowMultipleFileDialog(HWND owner, const FileDialogOptions& options);

// Empty when the dialog was cancelled.
std::filesystem::path ShowFolderDialog(HWND owner, const std::u16string& title,
                                       const std::filesystem::path& initialFolder);

}  // namespace scrivanta
