#include "window/driver/MessageBoxDriver.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

constexpr int kTextControl = 0xFFFF;
constexpr std::array kIconControls = {20, 1088};  // Windows, Wine

constexpr std::array kButtonOf = {std::pair{Answer::kOk, IDOK}, std::pair{Answer::kCancel, IDCANCEL},
                                  std::pair{Answer::kYes, IDYES}, std::pair{Answer::kNo, IDNO}};

int ButtonId(Answer answer) {
  for (const auto& [candidate, id] : kButtonOf) {
    if (candidate == answer) {
      return id;
    }
  }
  return 0;
}

std::string ButtonNames(unsigned buttons) {
  std::string names;
  for (const auto& [bit, name] : {std::pair{1U << IDOK, "OK "}, std::pair{1U << IDCANCEL, "Cancel "},
                                  std::pair{1U << IDYES, "Yes "}, std::pair{1U << IDNO, "No "}}) {
    names += (buttons & bit) != 0 ? name : "";
  }
  return names;
}

unsigned ButtonSet(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk:
      return 1U << IDOK;
    case Buttons::kOkCancel:
      return 1U << IDOK | 1U << IDCANCEL;
    case Buttons::kYesNo:
      return 1U << IDYES | 1U << IDNO;
    case Buttons::kYesNoCancel:
      return 1U << IDYES | 1U << IDNO | 1U << IDCANCEL;
  }
  return 0;
}

unsigned ShownButtons(HWND box) {
  unsigned buttons = 0;
  for (const auto& [answer, id] : kButtonOf) {
    const HWND button = GetDlgItem(box, id);
    if (button != nullptr && IsWindowVisible(button) != FALSE) {
      buttons |= 1U << static_cast<unsigned>(id);
    }
  }
  return buttons;
}

int ExpectedDefault(const Message& message) {
  if (message.defaultAnswer != Answer::kOk) {
    return ButtonId(message.defaultAnswer);
  }
  return message.buttons == Buttons::kOk || message.buttons == Buttons::kOkCancel ? IDOK : IDYES;
}

bool IsDefault(HWND button) {
  return (Send(button, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON) != 0;
}

HICON SystemIcon(Icon icon) {
  switch (icon) {
    case Icon::kCritical:
      return LoadIconW(nullptr, IDI_ERROR);
    case Icon::kQuestion:
      return LoadIconW(nullptr, IDI_QUESTION);
    case Icon::kWarning:
      return LoadIconW(nullptr, IDI_WARNING);
    case Icon::kInformation:
      return LoadIconW(nullptr, IDI_INFORMATION);
    case Icon::kNone:
      break;
  }
  return nullptr;
}

HICON ShownIcon(HWND box) {
  for (const int id : kIconControls) {
    const HWND control = GetDlgItem(box, id);
    if (control != nullptr && IsWindowVisible(control) != FALSE) {
      return reinterpret_cast<HICON>(Send(control, STM_GETICON));
    }
  }
  return nullptr;
}

HWND FindBox(DWORD processId) {
  for (const HWND window : TopWindows(processId, kDialogClass)) {
    if (IsWindowEnabled(window) != FALSE && GetDlgItem(window, kTextControl) != nullptr && ShownButtons(window) != 0) {
      return window;
    }
  }
  return nullptr;
}

void Check(bool right, const std::string& what, const std::string& expected, const std::string& shown) {
  if (!right) {
    FailWithPicture("message box: " + what + " should be \"" + expected + "\" and is \"" + shown + "\"");
  }
}

void CheckText(const std::string& what, const std::u16string& expected, const std::u16string& shown) {
  Check(expected == shown, what, Shown(expected), Shown(shown));
}

}  // namespace

MessageBoxDriver::MessageBoxDriver(DWORD processId, const Message& expected, std::function<void()> settle)
    : window_(WaitFor("a message box \"" + Shown(expected.text) + "\"", [=] { return FindBox(processId); })),
      settle_(std::move(settle)) {
  CheckText("text", expected.text, TextOf(GetDlgItem(window_, kTextControl)));
  CheckText("title", expected.title, TextOf(window_));
  Check(ShownButtons(window_) == ButtonSet(expected.buttons), "buttons", ButtonNames(ButtonSet(expected.buttons)),
        ButtonNames(ShownButtons(window_)));
  Check(IsDefault(GetDlgItem(window_, ExpectedDefault(expected))), "default button",
        std::to_string(ExpectedDefault(expected)), "another");
  const bool topMost = (GetWindowLongW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  Check(topMost == expected.systemModal, "system modal", expected.systemModal ? "yes" : "no", topMost ? "yes" : "no");
  if (processId == GetCurrentProcessId()) {
    Check(ShownIcon(window_) == SystemIcon(expected.icon), "icon",
          std::to_string(static_cast<int>(expected.icon)) + " in the order of enum Icon", "another");
  }
}

void MessageBoxDriver::Answer(scrivanta::Answer answer) {
  const HWND button = GetDlgItem(window_, ButtonId(answer));
  if (button == nullptr) {
    FailWithPicture("the message box has no such button");
  }
  PostMessageW(button, BM_CLICK, 0, 0);
  WaitUntilGone();
}

void MessageBoxDriver::Close() {
  PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
  WaitUntilGone();
}

void MessageBoxDriver::WaitUntilGone() const {
  WaitUntil("the message box to go",
            [this] { return IsWindow(window_) == FALSE || IsWindowVisible(window_) == FALSE; });
  settle_();
}

}  // namespace scrivanta
