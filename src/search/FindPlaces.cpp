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

std::vector<RtfText::Replacement> FindReplacements(std::u16string_view text, const FindState& state,
                                                   const RegExpEngine& engine, Progress& progress) {
  std::vector<RtfText::Replacement> replacements;
  if (state.isRegExp) {
    const RegExpReplacer replacer(engine, state.findText, state.replacement,
                                  {.ignoreCase = !state.matchesCase, .multiLine = true});
    replacer.regExp().Scan(
        text, 0,
        [&](const RegExpMatch& match) {
          std::u16string replacement;
          replacer.AppendReplacement(replacement, text, match);
          replacements.push_back({match.start, match.value.size(), std::move(replacement)});
          return true;
        },
        progress);
    return replacements;
  }
  for (const TextRange& place : FindPlaces(text, state, engine, progress)) {
    replacements.push_back({place.start.value, place.length, state.replacement});
  }
  return replacements;
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
