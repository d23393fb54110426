// A file as what is searched and replaced in it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "text/DocumentFormat.h"
#include "text/Fingerprint.h"

namespace scrivanta {

struct FileText {
  std::string rtf;      // the bytes of a rich text; empty for any other file
  std::u16string text;  // as a document shows it; a file of mixed line ends as it stands
  DocumentFormat format;
  Fingerprint content;  // of all the bytes
};

// A larger one would take several times as much memory: it is refused, unless its beginning shows that it is binary.
inline constexpr std::uintmax_t kLargestFileText = std::uintmax_t{256} << 20U;  // bytes

// Nothing for a binary file. Throws FileError, also for what is no file; ExplainedError for a file too large.
std::optional<FileText> ReadFileText(const std::filesystem::path& path);

}  // namespace scrivanta
