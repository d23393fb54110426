#include "window/driver/WindowProbe.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/win/WideText.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

constexpr UINT kAnswerLimitMilliseconds = 60'000;
constexpr std::size_t kDescribedText = 60;

struct TopWindowSearch {
  DWORD processId;  // 0: of all processes
  const wchar_t* className;
  std::vector<HWND> found;
};

BOOL CALLBACK CollectTopWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<TopWindowSearch*>(parameter);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if ((search.processId == 0 || owner == search.processId) && IsWindowVisible(window) != FALSE &&
      (search.className == nullptr || ClassOf(window) == search.className)) {
    search.found.push_back(window);
  }
  return TRUE;
}

// Without waiting long: the account of a failure must come to an end even if a window hangs.
std::u16string TextAtOnce(HWND window) {
  std::array<wchar_t, kDescribedText + 1> text{};
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG, 200,
                      &length);
  return FromWide({text.data(), std::min<std::size_t>(length, kDescribedText)});
}

std::string DescribeWindow(HWND window) {
  return Shown(FromWide(ClassOf(window))) + " \"" + Shown(TextAtOnce(window)) + "\"" +
         (IsWindowEnabled(window) == FALSE ? " disabled" : "");
}

BOOL CALLBACK DescribeControl(HWND control, LPARAM parameter) {
  if (IsWindowVisible(control) != FALSE) {
    *reinterpret_cast<std::string*>(parameter) +=
        "    " + std::to_string(GetDlgCtrlID(control)) + " " + DescribeWindow(control) + "\n";
  }
  return TRUE;
}

}  // namespace

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kAnswerLimitMilliseconds, &answer) == 0 &&
      IsWindow(window) != FALSE) {
    FailWithPicture("no answer to message " + std::to_string(message) + " from " + DescribeWindow(window));
  }
  return static_cast<LRESULT>(answer);
}

std::u16string TextOf(HWND window) {
  const auto length = static_cast<std::size_t>(Send(window, WM_GETTEXTLENGTH));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<std::size_t>(Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return FromWide(text);
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 128> name{};
  return {name.data(), static_cast<std::size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size())))};
}

void SetTextOf(HWND window, std::u16string_view text) {
  Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

std::vector<HWND> TopWindows(DWORD processId, const wchar_t* className) {
  TopWindowSearch search{processId, className, {}};
  EnumWindows(CollectTopWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND FindTopWindow(DWORD processId, const wchar_t* className, std::u16string_view title) {
  for (const HWND window : TopWindows(processId, className)) {
    if (IsWindowEnabled(window) != FALSE && TextOf(window) == title) {
      return window;
    }
  }
  return nullptr;
}

std::string DescribeWindows() {
  std::string description = "windows:\n";
  for (const HWND window : TopWindows(0)) {
    description += "  " + DescribeWindow(window) + "\n";
    EnumChildWindows(window, DescribeControl, reinterpret_cast<LPARAM>(&description));
  }
  return description;
}

std::string Shown(std::u16string_view text) {
  std::string shown;
  const std::wstring wide = ToWide(text);
  const int length = static_cast<int>(wide.size());
  shown.resize(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr)));
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, shown.data(), static_cast<int>(shown.size()), nullptr, nullptr);

  std::string escaped;
  for (const char c : shown) {
    switch (c) {
      case '\r':
        escaped += "\\r";
        break;
      case '\n':
        escaped += "\\n";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\0':
        escaped += "\\0";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace scrivanta
