// What ScrivantaRegularTest does, without its window.
#pragma once

#include <string>
#include <vector>

#include "search/ComboHistory.h"
#include "shell/workbench/DialogPlace.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

class RegularTestView : public Interface {
 public:
  virtual std::u16string PatternBox() const = 0;  // Combo1
  virtual void SetPatternBox(const std::u16string& text, const std::vector<std::u16string>& list) = 0;

  virtual DialogPlace Place() const = 0;
  virtual void SetPlace(const DialogPlace& place) = 0;
};

class RegularTest {
 public:
  explicit RegularTest(Workbench& workbench) : workbench_(workbench) {}

  // The window opens: fills the list from the ini file, and offers the examples.
  void Open(RegularTestView& view);
  void Close(const RegularTestView& view);
  // Command1: keeps the pattern, colours every match in the editor and tells their number. The colours of the test
  // before go first.
  void Test(RegularTestView& view);
  // Command3: fills the list from the ini file again.
  void Reload(RegularTestView& view);
  // F1: opens the ini file.
  void OpenIniFile();
  // F2: asks for a keyword and moves the items that contain it to the front.
  void FilterHistory(RegularTestView& view);

 private:
  void Load();
  void Save();
  void TakeColoursAway(std::u16string_view text, Progress& progress);
  void Colour(const std::vector<TextRange>& ranges, Progress& progress);

  Workbench& workbench_;
  ComboHistory history_;
  SettingEntries stored_;            // as the ini file has them
  std::vector<TextRange> coloured_;  // by the last test, in a text of this length
  std::size_t colouredLength_ = 0;
};

}  // namespace scrivanta
