#include "search/ReplaceRule.h"

#include <utility>

#include "regexp/MultiReplace.h"
#include "text/LineText.h"

namespace scrivanta {

ReplaceRule::ReplaceRule(const FindState& state, const RegExpEngine& engine, PatternScope scope) : taken_(scope.taken) {
  if (!state.isRegExp) {
    for (MultiReplace::Pair& pair : MultiReplace::PairUp(state.findText, state.replacement)) {
      if (!pair.find.empty()) {
        pairs_.push_back({LiteralFinder(pair.find, !state.matchesCase), std::move(pair.replacement)});
      }
    }
  } else if (!state.findText.empty() && state.findText != state.replacement) {
    pattern_ =
        std::make_unique<RegExpReplacer>(engine, state.findText, state.replacement,
                                         RegExpOptions{.ignoreCase = !state.matchesCase, .multiLine = scope.multiLine});
  }
}

TextEdits ReplaceRule::EditsIn(std::u16string_view text, Progress& progress) const {
  if (pattern_) {
    return EditsOf(text, *pattern_, taken_, progress);
  }
  TextEdits edits;
  std::u16string between;
  for (const Pair& pair : pairs_) {
    if (edits.empty()) {
      edits = EditsOf(text, pair.find, pair.replacement, progress);
      continue;
    }
    between = WithEdits(text, edits);
    const TextEdits further = EditsOf(between, pair.find, pair.replacement, progress);
    if (!further.empty()) {
      edits = Compose(edits, between, further);
    }
  }
  return edits;
}

std::optional<ReplaceRule::Found> ReplaceRule::FindIn(const std::filesystem::path& path, Progress& progress) const {
  std::optional<FileText> file = ReadFileText(path);
  if (!file) {
    return std::nullopt;
  }
  Found found{.file = std::move(*file), .edits = {}};
  found.edits = EditsIn(found.file.text, progress);
  DropIdleEdits(found.file.text, found.edits);
  if (!found.file.rtf.empty() && !found.edits.empty()) {
    const RtfText text(found.file.rtf);
    found.split = std::erase_if(found.edits, [&text](const TextEdit& edit) { return !text.CanReplace(edit); });
  }
  return found;
}

std::string ReplaceRule::BytesWith(const FileText& file, std::span<const TextEdit> edits) {
  if (!file.rtf.empty()) {
    return RtfText(file.rtf).Replace(edits).rtf;
  }
  std::u16string text = WithEdits(file.text, edits);
  if (file.format.lineEnds != DocumentLineEnds::kMixed) {
    text = WithOnlyFullLineBreaks(text);  // as in a document
  }
  return EncodeDocument(text, file.format);
}

}  // namespace scrivanta
