// The status bar, whose one panel holds the path of the document, and the progress bar of the main window.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

#include "shell/window/MainLayout.h"

namespace scrivanta {

class FrmMainBars {
 public:
  void Create(HWND parent);
  HWND statusBar() const noexcept { return statusBar_; }
  HWND progressBar() const noexcept { return progressBar_; }

  // What the panel shows: a note of the work in hand, else the path with a remark.
  void SetPath(const std::filesystem::path& path);
  void SetRemark(const std::u16string& remark);
  void SetWork(const std::u16string& work);

  // In percent; nothing hides the bar.
  void ShowProgress(std::optional<int> percent);

 private:
  void Refresh();

  HWND statusBar_ = nullptr;
  HWND progressBar_ = nullptr;
  std::u16string path_;
  std::u16string remark_;
  std::u16string work_;
};

}  // namespace scrivanta
