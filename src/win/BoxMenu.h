// The menu that the rich edit boxes of dialogs have at the right mouse button, as other boxes have the system's.
#pragma once

#include <windows.h>

#include <optional>

namespace scrivanta {

// Opens it when the message of the box asks for it, and does what is chosen; nothing for any other message. In a box
// that is read-only there is only what leaves the text as it is.
std::optional<LRESULT> AnswerWithBoxMenu(HWND box, UINT message, LPARAM lParam);

}  // namespace scrivanta
