#pragma once

#include <exception>
#include <filesystem>
#include <string>

namespace scrivanta {

// A file or folder that could not be read or written.
struct FileFailure {
  std::filesystem::path path;
  std::u16string reason;
  std::string english = {};  // the same for the console
};

// What to say of an exception that concerns one file among many.
std::u16string FailureReason(const std::exception& error);
FileFailure FailureOf(const std::filesystem::path& path, const std::exception& error);

}  // namespace scrivanta
