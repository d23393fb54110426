// What FrmSortParameters does, without its window. The window is not modal: the document may change while it is open.
#pragma once

#include <string>

#include "lines/LineSort.h"
#include "shell/workbench/ResultFiles.h"
#include "text/Interface.h"

namespace scrivanta {

// The window's controls.
class SortView : public Interface {
 public:
  virtual std::u16string From() const = 0;  // TxtSortFrom
  virtual std::u16string To() const = 0;    // TxtSortTo
  virtual SortBy By() const = 0;            // OptNumber, OptString, OptPinYin, OptBiHua
  virtual bool IsDescending() const = 0;    // OptJiangXi
  virtual void SetRange(const std::u16string& from, const std::u16string& to) = 0;
  virtual void SetTotal(const std::u16string& total) = 0;  // LabTotalNum
};

class SortDialog {
 public:
  explicit SortDialog(Workbench& workbench) : workbench_(workbench) {}

  // Captures the input and shows its lines in the view: when the window opens. Throws FileError.
  void Capture(SortView& view);
  // The button CmdSort. When the document or the selection is no longer what was captured, it captures again and shows
  // the new count; the user looks at the range and presses again. Throws FileError, Interrupted.
  void Sort(SortView& view);

 private:
  bool IsStillCaptured() const;
  void PutBack(SortView& view, const ResultFile& result);

  Workbench& workbench_;
  CapturedInput input_;
  std::size_t lineCount_ = 0;
};

}  // namespace scrivanta
