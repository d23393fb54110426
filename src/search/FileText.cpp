#include "search/FileText.h"

#include "search/RtfText.h"
#include "text/Bytes.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

std::optional<FileText> ReadFileText(const std::filesystem::path& path) {
  std::string bytes = ReadWholeFile(path);
  FileText file;
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
