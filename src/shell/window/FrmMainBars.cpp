#include "shell/window/FrmMainBars.h"

#include <commctrl.h>

#include "shell/window/FrmMainControls.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr char16_t kUntitled[] = u"状态";

HWND MakeChild(HWND parent, const wchar_t* className, int controlId, DWORD style) {
  const HWND child = CreateWindowExW(0, className, L"", WS_CHILD | style, 0, 0, 0, 0, parent,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), nullptr, nullptr);
  if (child == nullptr) {
    ThrowLastError("CreateWindowEx");
  }
  return child;
}

}  // namespace

void FrmMainBars::Create(HWND parent) {
  statusBar_ = MakeChild(parent, STATUSCLASSNAMEW, StatusBar1, WS_VISIBLE | SBARS_SIZEGRIP);
  progressBar_ = MakeChild(parent, PROGRESS_CLASSW, ProgressBar1, WS_CLIPSIBLINGS);
  SetPath({});
}

void FrmMainBars::SetPath(const std::filesystem::path& path) {
  path_ = path.empty() ? kUntitled : path.u16string();
  remark_.clear();
  Refresh();
}

void FrmMainBars::SetRemark(const std::u16string& remark) {
  if (remark != remark_) {
    remark_ = remark;
    Refresh();
  }
}

void FrmMainBars::SetWork(const std::u16string& work) {
  if (work != work_) {
    work_ = work;
    Refresh();
  }
}

void FrmMainBars::ShowProgress(std::optional<int> percent) {
  if (percent) {
    SendMessageW(progressBar_, PBM_SETPOS, static_cast<WPARAM>(*percent), 0);
    SetWindowPos(progressBar_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    UpdateWindow(progressBar_);
  } else {
    ShowWindow(progressBar_, SW_HIDE);
  }
}

void FrmMainBars::Refresh() {
  const std::u16string text = !work_.empty() ? work_ : remark_.empty() ? path_ : path_ + u"    " + remark_;
  SendMessageW(statusBar_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
  UpdateWindow(statusBar_);
}

}  // namespace scrivanta
