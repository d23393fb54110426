#include "search/FindPlaces.h"

#include "regexp/RegExpReplacer.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

std::vector<TextRange> FindPlaces(std::u16string_view text, const FindState& state, const RegExpEngine& engine,
                                  Progress& progress) {
  std::vector<TextRange> places;
  if (state.isRegExp) {
    engine.Compile(state.findText, {.ignoreCase = !state.matchesCase, .multiLine = true})
        ->Scan(
            text, 0,
            [&places](const RegExpMatch& match) {
              places.push_back({{match.start}, match.value.size()});
              return true;
            },
            progress);
    return places;
  }
  const LiteralFinder finder(state.findText, !state.matchesCase);
  for (std::size_t at = finder.Find(text, 0, progress); at != LiteralFinder::kNotFound;
       at = finder.Find(text, at + finder.length(), progress)) {
    places.push_back({{at}, finder.length()});
  }
  return places;
}

TextEdits FindReplacements(std::u16string_view text, const FindState& state, const RegExpEngine& engine,
                           Progress& progress) {
  if (!state.isRegExp) {
    return EditsOf(text, LiteralFinder(state.findText, !state.matchesCase), state.replacement, progress);
  }
  const RegExpReplacer replacer(engine, state.findText, state.replacement,
                                {.ignoreCase = !state.matchesCase, .multiLine = true});
  return EditsOf(text, replacer, MatchesTaken::kAll, progress);
}

std::u16string WholeLinePattern(std::u16string_view find) {
  constexpr std::u16string_view kSigns = u"\\^$.|?*+()[]{}";
  std::u16string pattern = u"^.*?";
  for (const char16_t c : find) {
    if (kSigns.find(c) != std::u16string_view::npos) {
      pattern += u'\\';
    }
    pattern += c;
  }
  return pattern + u".*?$";
}

}  // namespace scrivanta
