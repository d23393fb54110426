// What went wrong, in the user's language.
#pragma once

#include <exception>
#include <string>

#include "shell/Prompts.h"
#include "text/Bytes.h"

namespace scrivanta {

// Why a file could not be read or written: "文件不存在" and the like, the system's own words for what is rare.
std::u16string FileErrorReason(const std::error_code& code);

// The message box for a command that failed.
Message FailureMessage(const std::exception& error);

}  // namespace scrivanta
