#include "regexp/RegExpExecute.h"

namespace scrivanta {

MatchList RegExpExecute(const RegExpEngine& engine, std::u16string& text, std::u16string_view pattern,
                        std::u16string_view replacement, RegExpExecuteOptions options, Progress& progress) {
  const bool replaces = replacement != kNoReplacement;
  const auto regExp = engine.Compile(pattern, {options.ignoreCase, options.multiLine});
  MatchList matches;
  std::u16string replaced;
  std::size_t copied = 0;  // of the text
  regExp->Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        matches.Add({static_cast<std::int32_t>(match.start), static_cast<std::int32_t>(match.value.size()),
                     std::u16string(match.value)});
        if (replaces) {
          replaced.append(text, copied, match.start - copied).append(replacement);
          copied = match.end();
        }
        return options.global;
      },
      progress);
  if (replaces && matches.found()) {
    replaced.append(text, copied);
    text = std::move(replaced);
  }
  return matches;
}

}  // namespace scrivanta
