#include "shell/window/FrmMainLook.h"

#include <utility>

#include "shell/window/FrmMainControls.h"

namespace scrivanta {

namespace {

OwnedIcon LoadIconFor(HINSTANCE instance, int width, int height, UINT dotsPerInch) {
  return OwnedIcon(static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(IDI_SCRIVANTA), IMAGE_ICON,
                                                 GetSystemMetricsForDpi(width, dotsPerInch),
                                                 GetSystemMetricsForDpi(height, dotsPerInch), LR_DEFAULTCOLOR)));
}

// The new icon is shown before the old one is destroyed.
void ShowIcon(HWND window, WPARAM kind, OwnedIcon& shown, OwnedIcon icon) {
  SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon.get()));
  shown = std::move(icon);
}

}  // namespace

void FrmMainLook::Apply(HINSTANCE instance, HWND window, HWND statusBar, UINT dotsPerInch) {
  ShowIcon(window, ICON_BIG, icon_, LoadIconFor(instance, SM_CXICON, SM_CYICON, dotsPerInch));
  ShowIcon(window, ICON_SMALL, smallIcon_, LoadIconFor(instance, SM_CXSMICON, SM_CYSMICON, dotsPerInch));
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, dotsPerInch) != FALSE) {
    OwnedFont font(CreateFontIndirectW(&metrics.lfStatusFont));
    SendMessageW(statusBar, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    statusFont_ = std::move(font);
  }
}

}  // namespace scrivanta
