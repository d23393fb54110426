#include "search/FileFailure.h"

#include <new>

#include "shell/workbench/FailureMessage.h"
#include "text/Bytes.h"
#include "text/ErrorText.h"

namespace scrivanta {

std::u16string FailureReason(const std::exception& error) {
  if (const auto* fileError = dynamic_cast<const FileError*>(&error)) {
    return FileErrorReason(fileError->code());
  }
  return FailureMessage(error).text;
}

}  // namespace scrivanta
