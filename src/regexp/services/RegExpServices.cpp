#include "regexp/services/RegExpServices.h"

#include <utility>

#include "regexp/MultiReplace.h"
#include "regexp/services/SourceText.h"
#include "text/LineText.h"

namespace scrivanta {

std::u16string RegExpExtract(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             const RegExpExtractOptions& options, WriteBack writeBack, Progress& progress,
                             std::vector<std::u16string>* matches) {
  const SourceText input(source);
  std::vector<std::u16string> results = ExtractFromText(engine, input.text(), pattern, options, progress);
  std::u16string joined = JoinLines(results);
  if (writeBack == WriteBack::kYes && !joined.empty()) {
    input.Write(joined);
  }
  if (matches != nullptr) {
    *matches = std::move(results);
  }
  return joined;
}

std::u16string RegExpReplace(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             std::u16string_view replacement, RegExpReplaceOptions options, WriteBack writeBack,
                             Progress& progress) {
  const SourceText input(source);
  options.keepsLineFeeds = options.keepsLineFeeds || input.keepsLineEnds();
  std::u16string result = ReplaceInText(engine, input.text(), pattern, replacement, options, progress);
  if (writeBack == WriteBack::kYes) {
    input.Write(result);
  }
  return result;
}

std::u16string RegExpMarkerFilter(const RegExpEngine& engine, std::u16string_view source, std::u16string_view patterns,
                                  MarkerFilterMode mode, bool ignoreCase, Progress& progress) {
  return MarkerFilterText(engine, SourceText(source).text(), patterns, mode, ignoreCase, progress);
}

std::u16string MultiReplaceInFile(std::u16string_view source, std::u16string_view findList,
                                  std::u16string_view replaceList, bool ignoreCase, Progress& progress) {
  const MultiReplace replace(findList, replaceList, ignoreCase);
  const SourceText input(source);
  std::u16string text = input.text();
  replace.Apply(text, progress);
  input.Write(text);
  return text;
}

void MultiReplaceInList(std::vector<std::u16string>& lines, std::u16string_view findList,
                        std::u16string_view replaceList, bool ignoreCase, std::size_t& count, Progress& progress) {
  const MultiReplace replace(findList, replaceList, ignoreCase);
  std::vector<std::u16string> results = lines;
  std::size_t replaced = 0;
  for (std::u16string& line : results) {
    replaced += replace.Apply(line, progress);
  }
  lines = std::move(results);
  count += replaced;
}

}  // namespace scrivanta
