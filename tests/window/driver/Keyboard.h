// The keyboard: what is pressed here goes to whatever window has the focus, as from a real one.
#pragma once

#include <windows.h>

#include <string_view>

namespace scrivanta {

// No keyboard has this key and no program hears it.
constexpr WORD kUnassignedKey = 0xE8;

void PressKey(WORD virtualKey);
void ReleaseKey(WORD virtualKey);
// "Ctrl+Shift+C", "Tab", "F3", "Ctrl+;". Throws DriverFailure for a key that has no name here.
void PressKeys(std::string_view keys);
// Characters as an input method gives them.
void TypeText(std::u16string_view text);

}  // namespace scrivanta
