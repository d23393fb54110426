#include "shell/window/CommandLine.h"

#include <cstddef>

#include "text/Numbers.h"

namespace scrivanta {

DocumentArgument DocumentOf(std::u16string_view commandLine) {
  // Blanks behind the quotes are no part of what is quoted.
  std::u16string_view whole = commandLine.substr(0, commandLine.find_last_not_of(u" \t") + 1);
  constexpr std::u16string_view kLine = u"\" /line:";
  long long line = 0;
  if (const std::size_t at = whole.rfind(kLine); at != std::u16string_view::npos && whole.starts_with(u'"')) {
    line = LeadingWholeNumber(whole.substr(at + kLine.size()));
    whole = whole.substr(0, at + 1);
  }
  const bool isQuoted = whole.size() >= 2 && whole.starts_with(u'"') && whole.ends_with(u'"');
  return {isQuoted ? whole.substr(1, whole.size() - 2) : commandLine, line};
}

}  // namespace scrivanta
