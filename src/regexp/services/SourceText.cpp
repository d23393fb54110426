#include "regexp/services/SourceText.h"

#include <system_error>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

// No path is longer on any system, and none has these characters in it.
constexpr std::size_t kLongestPath = 32767;
constexpr std::u16string_view kNeverInPaths{u"\0\r\n", 3};

// Empty when the source names no file.
std::filesystem::path FileNamedBy(std::u16string_view source) {
  if (source.empty() || source.size() > kLongestPath || source.find_first_of(kNeverInPaths) != source.npos) {
    return {};
  }
  std::filesystem::path path = PathOfText(source);
  std::error_code noFile;
  return std::filesystem::is_regular_file(path, noFile) ? path : std::filesystem::path();
}

}  // namespace

SourceText::SourceText(std::u16string_view source) : file_(FileNamedBy(source)) {
  if (file_.empty()) {
    text_ = source;
    return;
  }
  DecodedDocument document = DecodeForChange(ReadWholeFile(file_));
  text_ = std::move(document.text);
  format_ = document.format;
}

bool SourceText::keepsLineEnds() const noexcept {
  return !file_.empty() && (format_.isBinary || format_.lineEnds == DocumentLineEnds::kMixed);
}

void SourceText::Write(std::u16string_view text) const {
  if (!file_.empty() && text != text_) {
    ReplaceFileContent(file_, EncodeDocument(text, format_));
  }
}

}  // namespace scrivanta
