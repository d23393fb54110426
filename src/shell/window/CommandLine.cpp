#include "shell/window/CommandLine.h"

namespace scrivanta {

std::u16string_view DocumentPathOf(std::u16string_view commandLine) {
  const bool isQuoted = commandLine.size() >= 2 && commandLine.starts_with(u'"') && commandLine.ends_with(u'"');
  return isQuoted ? commandLine.substr(1, commandLine.size() - 2) : commandLine;
}

}  // namespace scrivanta
