// Menus in dark colours: the system draws the texts of a menu in no colour but its own, so the entries are drawn here.
// They keep their texts and commands; whoever reads or changes them notices nothing.
#pragma once

#include <windows.h>

#include <optional>

namespace scrivanta {

class Colours;

// Has the entries of a menu that is about to be shown drawn, or left to the system again. False when the system
// draws them and is to.
bool DressMenu(HMENU menu, Colours& colours);

// Draws what the system leaves light in the bar, beside the entries. After each drawing of the window's frame.
void CompleteMenuBar(HWND window, Colours& colours);

// What a window answers that has such menus; nothing for other messages.
std::optional<LRESULT> AnswerForMenu(HWND window, Colours& colours, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace scrivanta
