#include "text/FileFailure.h"

#include "text/Bytes.h"
#include "text/ErrorText.h"

namespace scrivanta {

std::u16string FailureReason(const std::exception& error) {
  if (const auto* fileError = dynamic_cast<const FileError*>(&error)) {
    return FileErrorReason(fileError->code());
  }
  return FailureText(error);
}

FileFailure FailureOf(const std::filesystem::path& path, const std::exception& error) {
  const auto* const fileError = dynamic_cast<const FileError*>(&error);
  return {.path = path,
          .reason = FailureReason(error),
          .english = fileError != nullptr ? fileError->code().default_error_condition().message() : error.what()};
}

}  // namespace scrivanta
