// The platform's message box, in the colours of its owner.
#pragma once

#include <windows.h>

#include <string>

namespace scrivanta {

// The style is MessageBox's (MB_YESNO | MB_ICONQUESTION...); returns the button's identifier.
int ShowMessageBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT style);

}  // namespace scrivanta
