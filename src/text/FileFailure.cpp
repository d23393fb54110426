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

}  // namespace scrivanta
