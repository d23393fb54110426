#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace scrivanta {

// The text, and as a rich text unless that is empty, in place of what was there. Throws ExplainedError when another
// program keeps the clipboard to itself, which is then as it was.
void PutOnClipboard(HWND owner, std::u16string_view text, std::string_view rtf = {});

// The rich text, empty when there is none. Throws as the above.
std::string RtfOnClipboard(HWND owner);

}  // namespace scrivanta
