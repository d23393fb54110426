#include "printing/FrmPrintJob.h"

#include <utility>

#include "text/ErrorText.h"
#include "text/ExplainedError.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

constexpr double kHeaderSize = 9;  // points
constexpr UINT kUtf16CodePage = 1200;

PaperMetrics MetricsOf(HDC device) {
  return {.dotsPerInchX = GetDeviceCaps(device, LOGPIXELSX),
          .dotsPerInchY = GetDeviceCaps(device, LOGPIXELSY),
          .paperWidth = GetDeviceCaps(device, PHYSICALWIDTH),
          .paperHeight = GetDeviceCaps(device, PHYSICALHEIGHT),
          .offsetX = GetDeviceCaps(device, PHYSICALOFFSETX),
          .offsetY = GetDeviceCaps(device, PHYSICALOFFSETY),
          .printableWidth = GetDeviceCaps(device, HORZRES),
          .printableHeight = GetDeviceCaps(device, VERTRES)};
}

OwnedFont MakeHeaderFont(HDC device, const FontDescription& font) {
  return MakeDeviceFont(device, {.name = font.name, .size = kHeaderSize});
}

// The answer of the device to a step of printing.
void Require(int answer) {
  if (answer > 0) {
    return;
  }
  const std::error_code code(static_cast<int>(GetLastError()), std::system_category());
  // The user has cancelled the question of the device for a file name.
  if (answer == SP_APPABORT || answer == SP_USERABORT || code.value() == ERROR_CANCELLED ||
      code.value() == ERROR_PRINT_CANCELLED) {
    throw Interrupted();
  }
  throw ExplainedError("printing failed: " + code.message(), u"打印失败：\n" + FileErrorReason(code));
}

}  // namespace

FrmPrintJob::FrmPrintJob(OwnedDeviceContext device, const PageMargins& margins, FontDescription font, HWND box)
    : device_(std::move(device)),
      font_(std::move(font)),
      headerFont_(MakeHeaderFont(device_.get(), font_)),
      box_(box),
      paper_(MetricsOf(device_.get())),
      areas_(AreasOf(paper_, margins, FontMetrics(device_.get(), headerFont_).tmHeight)) {}

FrmPrintJob::~FrmPrintJob() {
  if (isStarted_) {
    AbortDoc(device_.get());
  }
}

std::size_t FrmPrintJob::LayOut(const PrintedText& text, Progress& progress) {
  pages_ = std::make_unique<FrmRichPages>(device_.get(), paper_, areas_.text, box_, ControlRange(text));
  if (!pages_->LayOut(progress)) {
    pages_ = std::make_unique<FrmTextPages>(device_.get(), areas_.text, font_, text.text);
    pages_->LayOut(progress);
  }
  return pages_->Count();
}

void FrmPrintJob::Start(const std::u16string& name) {
  const std::wstring title = ToWide(name);
  DOCINFOW document{};
  document.cbSize = sizeof(document);
  document.lpszDocName = title.c_str();
  Require(StartDocW(device_.get(), &document));
  isStarted_ = true;
}

void FrmPrintJob::PrintPage(std::size_t page, const PageHeader& header) {
  Require(StartPage(device_.get()));
  DrawHeader(header);
  pages_->Draw(page);
  Require(EndPage(device_.get()));
}

void FrmPrintJob::Finish() {
  isStarted_ = false;
  Require(EndDoc(device_.get()));
}

CHARRANGE FrmPrintJob::ControlRange(const PrintedText& text) const {
  CHARRANGE range{};
  if (text.isSelection) {
    SendMessageW(box_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  } else {
    GETTEXTLENGTHEX length{GTL_NUMCHARS | GTL_PRECISE, kUtf16CodePage};
    range.cpMax = static_cast<LONG>(SendMessageW(box_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0));
  }
  return range;
}

void FrmPrintJob::DrawHeader(const PageHeader& header) const {
  const HDC device = device_.get();
  const SelectedObject selected(device, headerFont_.get());
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, RGB(0, 0, 0));
  const std::wstring number = ToWide(header.number);
  const std::wstring name = ToWide(header.name);
  RECT area{areas_.header.left, areas_.header.top, areas_.header.right, areas_.header.bottom};
  constexpr UINT kOneLine = DT_SINGLELINE | DT_NOPREFIX;
  DrawTextW(device, number.data(), static_cast<int>(number.size()), &area, kOneLine | DT_RIGHT);
  SIZE size{};
  GetTextExtentPoint32W(device, number.data(), static_cast<int>(number.size()), &size);
  area.right -= size.cx + areas_.header.height();  // a long name does not run into the number
  DrawTextW(device, name.data(), static_cast<int>(name.size()), &area, kOneLine | DT_LEFT | DT_END_ELLIPSIS);
  const int line = (areas_.header.bottom + areas_.text.top) / 2;
  MoveToEx(device, areas_.header.left, line, nullptr);
  LineTo(device, areas_.header.right, line);
}

}  // namespace scrivanta
