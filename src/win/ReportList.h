// A list of rows in columns (a list view in its report form) that asks for the texts of the rows it shows, so that a
// hundred thousand rows cost nothing. The template gives the control LVS_REPORT | LVS_OWNERDATA.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace scrivanta {

struct ReportColumn {
  std::u16string title;
  int width;  // in pixels at 96 dots an inch
};

using ReportRow = std::vector<std::u16string>;  // a text a column

class ReportList {
 public:
  // To be called when the dialog opens.
  void Attach(HWND control, const std::vector<ReportColumn>& columns);
  void Show(std::vector<ReportRow> rows);
  void Choose(std::size_t row);
  // The row that is chosen, from 0.
  std::optional<std::size_t> Chosen() const;
  // Puts a box with a tick before each row. The rows are toggled by a click on the box, and those that are chosen by
  // the space bar; whoever toggles them draws them anew.
  using TickOf = std::function<bool(std::size_t row)>;
  using Toggle = std::function<void(const std::vector<std::size_t>& rows)>;
  void ShowTicks(TickOf tickOf, Toggle toggle);
  void Redraw();
  // Takes a WM_NOTIFY of the dialog; true when it was this list asking for a text.
  bool OnNotify(LPARAM notification);

 private:
  void AnswerAsked(LVITEMW& item);
  void ToggleClicked(const NMITEMACTIVATE& click);
  void ToggleChosen();

  HWND control_ = nullptr;
  std::vector<ReportRow> rows_;
  std::wstring shown_;  // the text that was asked for last
  TickOf tickOf_;
  Toggle toggle_;
};

}  // namespace scrivanta
