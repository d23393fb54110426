// What is replaced in files, and by what, made ready once for all of them.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"
#include "search/FileText.h"
#include "search/FindState.h"
#include "search/TextEdits.h"

namespace scrivanta {

struct PatternScope {
  MatchesTaken taken = MatchesTaken::kAll;  // of each file
  bool multiLine = true;                    // ^ and $ hold at every line
};

class ReplaceRule {
 public:
  // By pattern, or plain by the lists of the texts to find and to put in their places, separated by "|". Throws
  // RegExpSyntaxError, and ExplainedError for lists of unequal length.
  ReplaceRule(const FindState& state, const RegExpEngine& engine, PatternScope scope = {});

  struct Found {
    FileText file;
    TextEdits edits;        // those that change something
    std::size_t split = 0;  // places in a rich text that formatting parts: they stay
  };
  // Of a rich text only the text of the document counts. Nothing for a file that is no text. Throws as ReadFileText,
  // and RegExpTooComplex, Interrupted.
  std::optional<Found> FindIn(const std::filesystem::path& path, Progress& progress) const;

  // The bytes of the file with some of its edits, in its own encoding and with its line ends.
  static std::string BytesWith(const FileText& file, std::span<const TextEdit> edits);

 private:
  struct Pair {
    LiteralFinder find;
    std::u16string replacement;
  };
  TextEdits EditsIn(std::u16string_view text, Progress& progress) const;

  MatchesTaken taken_;
  std::vector<Pair> pairs_;                  // plain: one after the other
  std::unique_ptr<RegExpReplacer> pattern_;  // null also for one that changes nothing
};

}  // namespace scrivanta
