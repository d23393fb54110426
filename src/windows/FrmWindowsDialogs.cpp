#include "windows/FrmWindowsDialogs.h"

#include "win/TopLevelWindows.h"
#include "windows/FrmRelativeCoordinates.h"
#include "windows/desk/FrmWindows.h"
#include "windows/input/FrmSendInput.h"

namespace scrivanta {

void FrmWindowsDialogs::ShowCoordinates(CoordinatesDialog& dialog) {
  FrmRelativeCoordinates window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmWindowsDialogs::ShowSendInput(SendInputDialog& dialog) {
  FrmSendInput window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmWindowsDialogs::ShowWindows(WindowsDialog& dialog) {
  FrmWindows window(host_, dialog);
  window.ShowModal(owner_());
}

std::vector<std::u16string> FrmWindowsDialogs::Captions() const {
  return VisibleWindowTitles();
}

std::optional<ScreenPoint> FrmWindowsDialogs::ClientCorner(std::u16string_view caption) const {
  const auto corner = ClientCornerOf(FindTopLevelWindow(caption, WindowsOf::kAllPrograms));
  return corner ? std::optional(ScreenPoint{corner->x, corner->y}) : std::nullopt;
}

}  // namespace scrivanta
