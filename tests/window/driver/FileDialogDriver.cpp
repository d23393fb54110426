#include "window/driver/FileDialogDriver.h"

#include <array>

#include "window/driver/DialogDriver.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

// The name is typed into an edit box, or into a combo box that holds one.
constexpr std::array kNameControls = {1152, 1148};
constexpr int kFilterControl = 1136;

HWND FindNameBox(HWND dialog) {
  for (const int id : kNameControls) {
    const HWND control = GetDlgItem(dialog, id);
    if (control != nullptr && IsWindowVisible(control) != FALSE) {
      return control;
    }
  }
  return nullptr;
}

HWND FindFileDialog(DWORD processId) {
  for (const HWND window : TopWindows(processId, kDialogClass)) {
    if (IsWindowEnabled(window) != FALSE && FindNameBox(window) != nullptr) {
      return window;
    }
  }
  return nullptr;
}

}  // namespace

FileDialogDriver::FileDialogDriver(DWORD processId)
    : window_(WaitFor("the dialog for choosing a file", [=] { return FindFileDialog(processId); })) {}

void FileDialogDriver::Choose(const std::filesystem::path& file) const {
  SetTextOf(NameBox(), file.u16string());
  Press(IDOK);
}

void FileDialogDriver::Cancel() const {
  Press(IDCANCEL);
}

std::u16string FileDialogDriver::Caption() const {
  return TextOf(window_);
}

std::vector<std::u16string> FileDialogDriver::Filters() const {
  return DialogDriver(window_, [] {}).Items(kFilterControl);
}

std::u16string FileDialogDriver::Name() const {
  return TextOf(NameBox());
}

HWND FileDialogDriver::NameBox() const {
  return FindNameBox(window_);
}

void FileDialogDriver::Press(int buttonId) const {
  PostMessageW(GetDlgItem(window_, buttonId), BM_CLICK, 0, 0);
  WaitUntil("the dialog for choosing a file to go",
            [this] { return IsWindow(window_) == FALSE || IsWindowVisible(window_) == FALSE; });
}

}  // namespace scrivanta
