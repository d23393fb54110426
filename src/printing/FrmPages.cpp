#include "printing/FrmPages.h"

#include <algorithm>
#include <cmath>

#include "text/Twips.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr double kPointsPerInch = 72;

RECT ToTwips(const PageRect& area, const PaperMetrics& paper) {
  return {PixelsToTwips(area.left, paper.dotsPerInchX), PixelsToTwips(area.top, paper.dotsPerInchY),
          PixelsToTwips(area.right, paper.dotsPerInchX), PixelsToTwips(area.bottom, paper.dotsPerInchY)};
}

int LineHeight(const TEXTMETRICW& metrics) {
  return std::max<int>(metrics.tmHeight + metrics.tmExternalLeading, 1);
}

}  // namespace

OwnedFont MakeDeviceFont(HDC device, const FontDescription& font) {
  const int height = static_cast<int>(std::lround(font.size * GetDeviceCaps(device, LOGPIXELSY) / kPointsPerInch));
  return OwnedFont(
      CreateFontW(-std::max(height, 1), 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, font.italic ? TRUE : FALSE,
                  font.underline ? TRUE : FALSE, font.strikeThrough ? TRUE : FALSE, GB2312_CHARSET, OUT_DEFAULT_PRECIS,
                  CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, ToWide(font.name).c_str()));
}

TEXTMETRICW FontMetrics(HDC device, const OwnedFont& font) {
  const SelectedObject selected(device, font.get());
  TEXTMETRICW metrics{};
  GetTextMetricsW(device, &metrics);
  return metrics;
}

FrmRichPages::FrmRichPages(HDC device, const PaperMetrics& paper, const PageRect& area, HWND box, CHARRANGE range)
    : device_(device), paper_(paper), area_(area), box_(box), range_(range) {}

FrmRichPages::~FrmRichPages() {
  SendMessageW(box_, EM_FORMATRANGE, FALSE, 0);  // the control keeps what it has measured
}

bool FrmRichPages::LayOut(Progress& progress) {
  for (LONG start = range_.cpMin; start < range_.cpMax;) {
    progress.Report(static_cast<std::uint64_t>(start - range_.cpMin),
                    static_cast<std::uint64_t>(range_.cpMax - range_.cpMin));
    starts_.push_back(start);
    const LONG end = Format(start, range_.cpMax, false);
    if (end <= start) {
      return false;
    }
    start = end;
  }
  return !starts_.empty();
}

void FrmRichPages::Draw(std::size_t page) {
  const LONG end = page + 1 < starts_.size() ? starts_[page + 1] : range_.cpMax;
  Format(starts_.at(page), end, true);
}

LONG FrmRichPages::Format(LONG start, LONG end, bool draw) const {
  FORMATRANGE range{};
  range.hdc = device_;
  range.hdcTarget = device_;
  range.rc = ToTwips(area_, paper_);
  range.rcPage = {0, 0, PixelsToTwips(paper_.paperWidth, paper_.dotsPerInchX),
                  PixelsToTwips(paper_.paperHeight, paper_.dotsPerInchY)};
  range.chrg = {start, end};
  return static_cast<LONG>(SendMessageW(box_, EM_FORMATRANGE, draw ? TRUE : FALSE, reinterpret_cast<LPARAM>(&range)));
}

FrmTextPages::FrmTextPages(HDC device, const PageRect& area, const FontDescription& font, const std::u16string& text)
    : device_(device),
      area_(area),
      font_(MakeDeviceFont(device, font)),
      lineHeight_(LineHeight(FontMetrics(device, font_))),
      pages_(text, *this, static_cast<std::size_t>(std::max(area.height() / lineHeight_, 1))) {}

bool FrmTextPages::LayOut(Progress& progress) {
  const SelectedObject selected(device_, font_.get());
  pages_.LayOut(progress);
  return true;
}

void FrmTextPages::Draw(std::size_t page) {
  const SelectedObject selected(device_, font_.get());
  SetBkMode(device_, TRANSPARENT);
  int top = area_.top;
  for (const std::u16string& line : pages_.LinesOf(page)) {
    const std::wstring shown = ToWide(line);
    TextOutW(device_, area_.left, top, shown.data(), static_cast<int>(shown.size()));
    top += lineHeight_;
  }
}

std::size_t FrmTextPages::FittingUnits(std::u16string_view text) const {
  const std::wstring line = ToWide(text);
  int fitting = 0;
  SIZE size{};
  GetTextExtentExPointW(device_, line.data(), static_cast<int>(line.size()), area_.width(), &fitting, nullptr, &size);
  return static_cast<std::size_t>(fitting);
}

}  // namespace scrivanta
