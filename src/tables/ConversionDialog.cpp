#include "tables/ConversionDialog.h"

#include "text/ErrorText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kPreviewInput = 512 * 1024;  // bytes
constexpr std::size_t kPreviewLines = 40;

std::string_view FirstLines(std::string_view bytes, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end < bytes.size(); --count) {
    const std::size_t lineFeed = bytes.find('\n', end);
    end = lineFeed == std::string_view::npos ? bytes.size() : lineFeed + 1;
  }
  return bytes.substr(0, end);
}

}  // namespace

std::string_view BeginningOf(std::string_view bytes) {
  if (bytes.size() <= kPreviewInput) {
    return bytes;
  }
  const std::size_t lineFeed = bytes.rfind('\n', kPreviewInput);
  return bytes.substr(0, lineFeed == std::string_view::npos ? kPreviewInput : lineFeed + 1);
}

std::u16string ConversionDialog::PreviewOf(const Conversion& conversion) const {
  try {
    StringSink sink;
    LineWriter out(sink);
    NoProgress progress;
    conversion(BeginningOf(input_.bytes), out, progress);
    out.Flush();
    return Decode(kWorkFileEncoding, FirstLines(sink.bytes(), kPreviewLines));
  } catch (const std::exception& error) {
    return FailureText(error);
  }
}

void ConversionDialog::Run(const Conversion& conversion) {
  std::u16string status;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    RewriteInputFile(input_);
    ResultFile result(workbench_, resultFileName_);
    LineWriter out(result);
    status = conversion(input_.bytes, out, work->progress());
    out.Flush();
    PutResultBack(workbench_, input_, result);
  }
  workbench_.ShowStatus(status);
}

}  // namespace scrivanta
