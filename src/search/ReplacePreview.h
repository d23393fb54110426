// What FrmReplacePreview does, without its window: shows what a replacement in files would do, and takes ticks away.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "search/ReplacePlan.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

// A line of the list: a place, or those of a file that are too many to be listed.
struct PreviewRow {
  std::u16string file;
  std::u16string line;
  std::u16string before;
  std::u16string after;
};

class PreviewView : public Interface {
 public:
  virtual void ShowFolder(const std::u16string& text) = 0;  // LblFolder
  virtual void ShowRows(const std::vector<PreviewRow>& rows) = 0;
  virtual void ShowTicks() = 0;                            // they have changed
  virtual void ShowCount(const std::u16string& text) = 0;  // LblCount
  virtual void EnableReplace(bool enable) = 0;             // CmdReplaceTicked
  virtual void Leave() = 0;                                // the window closes
};

class ReplacePreview {
 public:
  // The plan keeps the ticks.
  ReplacePreview(Workbench& workbench, ReplacePlan& plan) : workbench_(workbench), plan_(plan) {}

  void Open(PreviewView& view);
  bool IsTicked(std::size_t row) const;
  // The rows get their ticks, or lose them when all have them.
  void Toggle(PreviewView& view, const std::vector<std::size_t>& rows);
  // The same with all rows of the file that a row is of.
  void ToggleFile(PreviewView& view, std::size_t row);
  void TickAll(PreviewView& view, bool ticked);
  // The button: asks, with the numbers, and closes the window when the answer is yes.
  void Replace(PreviewView& view);
  // Whether what is ticked is to be replaced.
  bool isAccepted() const noexcept { return isAccepted_; }

 private:
  struct Places {
    std::size_t file = 0;  // of the plan
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  void Tick(const Places& places, bool ticked);
  void ShowState(PreviewView& view) const;

  Workbench& workbench_;
  ReplacePlan& plan_;
  std::vector<Places> rows_;
  bool isAccepted_ = false;
};

}  // namespace scrivanta
