#include "shell/window/CommandLine.h"

namespace scrivanta {

std::u16string_view DocumentPathOf(std::u16string_view commandLine) {
  // Blanks behind the quotes are no part of what is quoted.
  const std::u16string_view whole = commandLine.substr(0, commandLine.find_last_not_of(u" \t") + 1);
  const bool isQuoted = whole.size() >= 2 && whole.starts_with(u'"') && whole.ends_with(u'"');
  return isQuoted ? whole.substr(1, whole.size() - 2) : commandLine;
}

}  // namespace scrivanta
