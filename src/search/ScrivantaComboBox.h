// A combo box with an edit box and a list, as the search windows fill and read it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace scrivanta {

void FillComboBox(HWND combo, const std::u16string& text, const std::vector<std::u16string>& list);

}  // namespace scrivanta
