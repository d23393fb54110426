// The message box for a command that failed.
#pragma once

#include <exception>

#include "shell/workbench/Prompts.h"
#include "text/ErrorText.h"

namespace scrivanta {

inline Message FailureMessage(const std::exception& error) {
  return {.text = FailureText(error), .icon = Icon::kCritical, .systemModal = true};
}

}  // namespace scrivanta
