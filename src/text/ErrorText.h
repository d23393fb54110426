// Why something failed, in the user's language.
#pragma once

#include <exception>
#include <string>
#include <system_error>

namespace scrivanta {

// Why a file could not be read or written: "文件不存在" and the like, the system's own words for what is rare.
std::u16string FileErrorReason(const std::error_code& code);

// What to tell of an exception: a file's name and the reason for a FileError, the text of an ExplainedError, else what
// there is to know.
std::u16string FailureText(const std::exception& error);

}  // namespace scrivanta
