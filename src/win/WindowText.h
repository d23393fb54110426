// What a window shows as its text: its caption, or what stands in a control.
#pragma once

#include <windows.h>

#include <string>

namespace scrivanta {

std::u16string WindowText(HWND window);

}  // namespace scrivanta
