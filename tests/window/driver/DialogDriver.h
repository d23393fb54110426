// A dialog that is open in this process. Controls are named by their identifiers.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace scrivanta {

class DialogDriver {
 public:
  // `settle` returns when the program has done what it was told.
  DialogDriver(HWND window, std::function<void()> settle) : window_(window), settle_(std::move(settle)) {}

  HWND window() const noexcept { return window_; }
  // Throws DriverFailure when there is no such control.
  HWND Control(int controlId) const;

  // Replaces what stands in a text box or in the edit box of a combo box.
  DialogDriver& Type(int controlId, std::u16string_view text);
  // Presses a button, or switches a check box or an option button. Throws DriverFailure when it is disabled.
  DialogDriver& Press(int controlId);
  // Chooses an item of a combo or list box by its text. Throws DriverFailure when there is none.
  DialogDriver& Choose(int controlId, std::u16string_view item);
  // A row of a list in columns.
  DialogDriver& ChooseRow(int controlId, int row);
  void Close();
  void WaitUntilGone() const;
  bool IsOpen() const;

  std::u16string Caption() const;
  std::u16string Text(int controlId) const;
  bool IsEnabled(int controlId) const;
  bool IsChecked(int controlId) const;
  std::vector<std::u16string> Items(int controlId) const;
  // What a list in columns shows; empty where it has no such row.
  std::u16string Cell(int controlId, int row, int column) const;
  // Empty when the control has none.
  std::u16string ToolTip(int controlId) const;
  // The identifier of the control that has the focus.
  int Focus() const;

 private:
  HWND window_;
  std::function<void()> settle_;
};

}  // namespace scrivanta
