// Reads and finds windows, of this process or of another one.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// Sends a message and waits for the answer. Throws DriverFailure when the window does not answer within the limit; one
// that goes meanwhile answers 0, since what looks for windows meets such. For a window of another process only messages
// below WM_USER may carry pointers.
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// The whole text, asked of the window itself: the caption, or what stands in a control.
std::u16string TextOf(HWND window);
std::wstring ClassOf(HWND window);
void SetTextOf(HWND window, std::u16string_view text);

constexpr const wchar_t* kDialogClass = L"#32770";

// The visible top windows of a process, the topmost first. Without a class name those of every class.
std::vector<HWND> TopWindows(DWORD processId, const wchar_t* className = nullptr);
// The first of them that is enabled and has the title.
HWND FindTopWindow(DWORD processId, const wchar_t* className, std::u16string_view title);

// The visible top windows of the whole desktop with their controls, a line each, to be read by a person.
std::string DescribeWindows();

// For messages: UTF-8, line ends and other control characters written out.
std::string Shown(std::u16string_view text);

}  // namespace scrivanta
