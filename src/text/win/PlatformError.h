// A call of the platform that failed where nothing can be done about it.
#pragma once

#include <windows.h>

#include <system_error>

namespace scrivanta {

[[noreturn]] inline void ThrowLastError(const char* call) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), call);
}

}  // namespace scrivanta
