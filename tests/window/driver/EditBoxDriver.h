// A rich edit box of this process. Positions count as in the document text: in UTF-16 code units from 0, a line break
// two.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <string>

#include "shell/workbench/Editor.h"

namespace scrivanta {

class EditBoxDriver {
 public:
  explicit EditBoxDriver(HWND window) : window_(window) {}

  HWND window() const noexcept { return window_; }
  // Lines separated by CR LF.
  std::u16string Text() const;
  TextRange Selection() const;
  std::u16string SelectedText() const;
  void Select(TextRange range) const;
  // Selects the first place where the text stands. Throws DriverFailure when it stands nowhere.
  void SelectText(std::u16string_view text) const;
  // Puts the text in place of the selection, as if it were pasted.
  void Insert(std::u16string_view text) const;
  CHARFORMAT2W SelectionFormat() const;
  // Where a position of the text is on the desktop, in pixels.
  POINT ScreenPlace(std::size_t position) const;
  // Of each unit of the text, as digits: 1 for bold, 2 for italics, 4 for underlined, added up; 0 for line breaks.
  // Throws DriverFailure when the rich text cannot be read.
  std::string Effects() const;

 private:
  HWND window_;
};

}  // namespace scrivanta
