#include "search/FileText.h"

#include "rtf/RtfText.h"
#include "text/Bytes.h"
#include "text/ExplainedError.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kHead = std::size_t{64} << 10U;  // bytes

// Told from the beginning of the file, so that films and archives need not be read whole.
bool BeginsBinary(const std::filesystem::path& path) {
  FileSource file(path);
  std::string head(kHead, '\0');
  head.resize(file.Read(head));
  return DecodeAsItStands(head).format.isBinary;
}

}  // namespace

std::optional<FileText> ReadFileText(const std::filesystem::path& path) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) {
    throw FileError(path, error);
  }
  if (size > kHead && BeginsBinary(path)) {
    return std::nullopt;
  }
  if (size > kLargestFileText) {
    throw ExplainedError("the file is larger than 256 MB", u"文件超过256MB，太大");
  }
  std::string bytes = ReadWholeFile(path);
  FileText file;
  file.content = FingerprintOf(bytes);
  if (IsRichTextPath(TextOfPath(path)) && bytes.starts_with("{\\rtf")) {
    file.rtf = std::move(bytes);
    file.text = RtfText(file.rtf).text();
    return file;
  }
  DecodedDocument document = DecodeForChange(bytes);
  if (document.format.isBinary) {
    return std::nullopt;
  }
  file.text = std::move(document.text);
  file.format = document.format;
  return file;
}

}  // namespace scrivanta
