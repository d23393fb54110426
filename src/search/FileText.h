// A file as what is searched and replaced in it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "text/DocumentFormat.h"
#include "text/Progress.h"

namespace scrivanta {

struct FileText {
  std::string rtf;      // the bytes of a rich text; empty for any other file
  std::u16string text;  // as a document shows it; a file of mixed line ends as it stands
  DocumentFormat format;
};

// Nothing for a binary file. Throws FileError.
std::optional<FileText> ReadFileText(const std::filesystem::path& path);

}  // namespace scrivanta
