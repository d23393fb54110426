// A text that holds small files as they were, and puts them back.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

struct FileCopy {
  std::filesystem::path path;
  std::optional<std::string> bytes;  // none for a file that was not there
};

// Throws FileError.
FileCopy CopyOfFile(const std::filesystem::path& path);
std::string TextOfCopies(const std::vector<FileCopy>& copies);
// Throws ExplainedError that names the line.
std::vector<FileCopy> ReadCopies(std::string_view text);
// The file is as it was: also gone where there was none. Throws FileError.
void PutBack(const FileCopy& copy);

}  // namespace scrivanta
