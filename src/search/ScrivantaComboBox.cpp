#include "search/ScrivantaComboBox.h"

#include "text/win/WideText.h"

namespace scrivanta {

void FillComboBox(HWND combo, const std::u16string& text, const std::vector<std::u16string>& list) {
  SendMessageW(combo, WM_SETREDRAW, FALSE, 0);
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  SendMessageW(combo, CB_LIMITTEXT, 0, 0);
  for (const std::u16string& item : list) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  SetWindowTextW(combo, ToWide(text).c_str());
  SendMessageW(combo, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(combo, nullptr, TRUE);
}

}  // namespace scrivanta
