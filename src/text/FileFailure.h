#pragma once

#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// A file or folder that could not be read or written.
struct FileFailure {
  std::filesystem::path path;
  std::u16string reason;
  std::string englishReason = {};  // for the console
};

// An exception that concerns one file among many.
FileFailure FailureOf(const std::filesystem::path& path, const std::exception& error);

// The heading and up to twenty of them, one a line, each begun by a line feed; empty when there are none.
std::u16string DescribeFailures(std::u16string_view heading, const std::vector<FileFailure>& failures);

}  // namespace scrivanta
