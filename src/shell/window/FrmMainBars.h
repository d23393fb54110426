// The status bar, whose first panel holds the path of the document, and the progress bar of the main window.
#pragma once

#include <windows.h>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "shell/window/StatusPanels.h"

namespace scrivanta {

class FrmMainBars {
 public:
  void Create(HWND parent);
  HWND statusBar() const noexcept { return statusBar_; }
  HWND progressBar() const noexcept { return progressBar_; }

  // What the first panel shows: a note of the work in hand or of a menu, else the path with a remark.
  void SetPath(const std::filesystem::path& path);
  void SetRemark(const std::u16string& remark);
  // A remark that does not pass with the next move of the caret.
  void SetNotice(const std::u16string& notice);
  void DropPassingRemark();
  void SetWork(const std::u16string& work);
  // While a menu is open, about its entry.
  void SetHint(const std::u16string& hint);

  // What the others show. They are laid out again when the bar or its font has changed.
  void SetPanels(const PerStatusPanel<std::u16string>& texts);
  void LayOut();
  // What a click on the bar has met: the number of a panel as its notification has it.
  static std::optional<StatusPanel> PanelOf(std::size_t part);
  // On the screen.
  RECT BoundsOf(StatusPanel panel) const;

  // In percent; nothing hides the bar.
  void ShowProgress(std::optional<int> percent);

 private:
  void Refresh();
  void ShareOut();

  HWND statusBar_ = nullptr;
  HWND progressBar_ = nullptr;
  std::u16string path_;
  std::u16string remark_;
  bool isNotice_ = false;
  std::u16string work_;
  std::u16string hint_;
  PerStatusPanel<std::u16string> panels_;
  PerStatusPanel<int> widths_{};
  std::vector<int> edges_;
};

}  // namespace scrivanta
