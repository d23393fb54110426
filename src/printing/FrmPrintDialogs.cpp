#include "printing/FrmPrintDialogs.h"

#include <commdlg.h>

#include <cderr.h>

#include "printing/FrmPrintJob.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr WORD kHighestPage = 0xFFFF;

// Locks the memory block of a printer's settings for as long as it lives.
class LockedDeviceMode {
 public:
  explicit LockedDeviceMode(HGLOBAL memory) : memory_(memory), mode_(static_cast<DEVMODEW*>(GlobalLock(memory))) {}
  LockedDeviceMode(const LockedDeviceMode&) = delete;
  LockedDeviceMode& operator=(const LockedDeviceMode&) = delete;
  ~LockedDeviceMode() { GlobalUnlock(memory_); }

  explicit operator bool() const noexcept { return mode_ != nullptr; }
  DEVMODEW* operator->() const noexcept { return mode_; }

 private:
  HGLOBAL memory_;
  DEVMODEW* mode_;
};

// After a dialog that was not confirmed: it was cancelled, or there was none.
void RequireCancelled() {
  switch (const DWORD error = CommDlgExtendedError()) {
    case 0:
      return;
    case PDERR_NODEFAULTPRN:
    case PDERR_NODEVICES:
    case PDERR_PRINTERNOTFOUND:
    case PDERR_DNDMMISMATCH:
      throw ExplainedError("no printer", u"没有可用的打印机！\n请先在系统的设置中添加打印机。");
    default:
      throw ExplainedError("the print dialog failed with error " + std::to_string(error), u"打印机不可用！");
  }
}

PRINTDLGW MakePrintDialog(DWORD flags) {
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof(dialog);
  // Without a printer the program shows a message of its own.
  dialog.Flags = flags | PD_NOWARNING;
  return dialog;
}

void ApplyTo(HGLOBAL deviceMode, const PageSetup& setup) {
  const LockedDeviceMode mode(deviceMode);
  if (!mode) {
    return;
  }
  mode->dmFields |= DM_ORIENTATION;
  mode->dmOrientation = setup.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  if (setup.paper != 0) {
    mode->dmFields |= DM_PAPERSIZE;
    mode->dmPaperSize = static_cast<short>(setup.paper);
  }
}

PageSetup SetupOf(const RECT& margins, HGLOBAL deviceMode) {
  PageSetup setup{.margins = {margins.left, margins.top, margins.right, margins.bottom}};
  const LockedDeviceMode mode(deviceMode);
  if (mode) {
    setup.landscape = (mode->dmFields & DM_ORIENTATION) != 0 && mode->dmOrientation == DMORIENT_LANDSCAPE;
    setup.paper = (mode->dmFields & DM_PAPERSIZE) != 0 ? mode->dmPaperSize : 0;
  }
  return setup;
}

}  // namespace

std::optional<PrintOrder> FrmPrintDialogs::AskForOrder(const PageSetup& setup, bool hasSelection) {
  PrepareDevice(setup);
  PRINTDLGW dialog = MakePrintDialog(PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | (hasSelection ? 0 : PD_NOSELECTION));
  dialog.hwndOwner = owner_();
  dialog.nFromPage = 1;
  dialog.nToPage = 1;
  dialog.nMinPage = 1;
  dialog.nMaxPage = kHighestPage;
  dialog.hDevMode = deviceMode_.Release();
  dialog.hDevNames = deviceNames_.Release();
  const bool confirmed = PrintDlgW(&dialog) != FALSE;
  deviceMode_.Reset(dialog.hDevMode);
  deviceNames_.Reset(dialog.hDevNames);
  OwnedDeviceContext device(dialog.hDC);
  if (!confirmed) {
    RequireCancelled();
    return std::nullopt;
  }
  const bool pagesOnly = (dialog.Flags & PD_PAGENUMS) != 0;
  return PrintOrder{.job = std::make_unique<FrmPrintJob>(std::move(device), setup.margins, box_.Font(), boxWindow_()),
                    .selectionOnly = (dialog.Flags & PD_SELECTION) != 0,
                    .firstPage = pagesOnly ? dialog.nFromPage : std::size_t{1},
                    .lastPage = pagesOnly ? dialog.nToPage : std::size_t{0}};
}

std::optional<PageSetup> FrmPrintDialogs::AskForSetup(const PageSetup& setup) {
  PrepareDevice(setup);
  PAGESETUPDLGW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner_();
  dialog.Flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS | PSD_NOWARNING;
  dialog.rtMargin = {setup.margins.left, setup.margins.top, setup.margins.right, setup.margins.bottom};
  dialog.hDevMode = deviceMode_.Release();
  dialog.hDevNames = deviceNames_.Release();
  const bool confirmed = PageSetupDlgW(&dialog) != FALSE;
  deviceMode_.Reset(dialog.hDevMode);
  deviceNames_.Reset(dialog.hDevNames);
  if (!confirmed) {
    RequireCancelled();
    return std::nullopt;
  }
  return SetupOf(dialog.rtMargin, deviceMode_.get());
}

void FrmPrintDialogs::PrepareDevice(const PageSetup& setup) {
  if (!deviceMode_) {
    PRINTDLGW dialog = MakePrintDialog(PD_RETURNDEFAULT);
    const bool found = PrintDlgW(&dialog) != FALSE;
    deviceMode_.Reset(dialog.hDevMode);
    deviceNames_.Reset(dialog.hDevNames);
    if (!found) {
      RequireCancelled();
    }
  }
  ApplyTo(deviceMode_.get(), setup);
}

}  // namespace scrivanta
