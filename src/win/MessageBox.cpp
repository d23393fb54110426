#include "win/MessageBox.h"

#include "text/win/WideText.h"

namespace scrivanta {

int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style) {
  return MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), style);
}

}  // namespace scrivanta
