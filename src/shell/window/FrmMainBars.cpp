#include "shell/window/FrmMainBars.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "shell/window/FrmMainControls.h"
#include "text/win/PlatformError.h"
#include "text/win/WideText.h"
#include "win/Handles.h"

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

// A device context with the font of the bar.
class StatusFontContext {
 public:
  explicit StatusFontContext(HWND bar)
      : context_(bar),
        before_(SelectObject(context_.get(), reinterpret_cast<HGDIOBJ>(SendMessageW(bar, WM_GETFONT, 0, 0)))) {}
  StatusFontContext(const StatusFontContext&) = delete;
  StatusFontContext& operator=(const StatusFontContext&) = delete;
  ~StatusFontContext() { SelectObject(context_.get(), before_); }

  HDC get() const noexcept { return context_.get(); }

 private:
  WindowDeviceContext context_;
  HGDIOBJ before_;
};

// In steps, so that the panels stay where they are while figures change.
int PanelWidth(HDC context, const std::u16string& text) {
  if (text.empty()) {
    return 0;
  }
  SIZE size{};
  GetTextExtentPoint32W(context, ToWide(text).c_str(), static_cast<int>(text.size()), &size);
  const int step = size.cy;
  return (size.cx / step + 2) * step;
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
  isNotice_ = false;
  Refresh();
}

void FrmMainBars::SetNotice(const std::u16string& notice) {
  SetRemark(notice);
  isNotice_ = true;
}

void FrmMainBars::DropPassingRemark() {
  if (!isNotice_) {
    SetRemark({});
  }
}

void FrmMainBars::SetRemark(const std::u16string& remark) {
  isNotice_ = false;
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

void FrmMainBars::SetHint(const std::u16string& hint) {
  if (hint != hint_) {
    hint_ = hint;
    Refresh();
  }
}

// The caret moves all the time: only what has changed is measured and drawn.
void FrmMainBars::SetPanels(const PerStatusPanel<std::u16string>& texts) {
  if (texts == panels_) {
    return;
  }
  const StatusFontContext context(statusBar_);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i] != panels_[i]) {
      panels_[i] = texts[i];
      widths_[i] = PanelWidth(context.get(), texts[i]);
      SendMessageW(statusBar_, SB_SETTEXTW, i + 1, reinterpret_cast<LPARAM>(ToWide(texts[i]).c_str()));
    }
  }
  ShareOut();
}

void FrmMainBars::LayOut() {
  const StatusFontContext context(statusBar_);
  std::ranges::transform(panels_, widths_.begin(),
                         [&](const std::u16string& text) { return PanelWidth(context.get(), text); });
  ShareOut();
}

void FrmMainBars::ShareOut() {
  RECT inner{};
  GetClientRect(statusBar_, &inner);
  const int grip = GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(statusBar_));
  std::vector<int> edges = StatusPanelEdges(inner.right, grip, widths_);
  if (edges != edges_) {
    edges_ = std::move(edges);
    SendMessageW(statusBar_, SB_SETPARTS, edges_.size(), reinterpret_cast<LPARAM>(edges_.data()));
  }
}

std::optional<StatusPanel> FrmMainBars::PanelOf(std::size_t part) {
  return part >= 1 && part <= kStatusPanelCount ? std::optional(static_cast<StatusPanel>(part - 1)) : std::nullopt;
}

RECT FrmMainBars::BoundsOf(StatusPanel panel) const {
  RECT bounds{};
  SendMessageW(statusBar_, SB_GETRECT, static_cast<WPARAM>(panel) + 1, reinterpret_cast<LPARAM>(&bounds));
  MapWindowPoints(statusBar_, nullptr, reinterpret_cast<POINT*>(&bounds), 2);
  return bounds;
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
  const std::u16string text = !hint_.empty()    ? hint_
                              : !work_.empty()  ? work_
                              : remark_.empty() ? path_
                                                : path_ + u"    " + remark_;
  SendMessageW(statusBar_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
  UpdateWindow(statusBar_);
}

}  // namespace scrivanta
