#include "search/TextEdits.h"

#include <algorithm>

#include "regexp/RegExpReplace.h"

namespace scrivanta {

TextEdits EditsOf(std::u16string_view text, const LiteralFinder& find, std::u16string_view replacement,
                  Progress& progress) {
  TextEdits edits;
  for (std::size_t at = find.Find(text, 0, progress); at != LiteralFinder::kNotFound;
       at = find.Find(text, at + find.length(), progress)) {
    edits.push_back({at, find.length(), std::u16string(replacement)});
  }
  return edits;
}

TextEdits EditsOf(std::u16string_view text, const RegExpReplacer& replacer, MatchesTaken taken, Progress& progress) {
  TextEdits edits;
  std::size_t size = text.size();
  replacer.regExp().Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        TextEdit edit{match.start, match.value.size(), {}};
        replacer.AppendReplacement(edit.text, text, match);
        CheckReplacedSize(size += edit.text.size());
        edits.push_back(std::move(edit));
        return taken == MatchesTaken::kAll;
      },
      progress);
  return edits;
}

std::u16string WithEdits(std::u16string_view text, std::span<const TextEdit> edits) {
  std::u16string result;
  result.reserve(text.size());
  std::size_t copied = 0;  // of the text
  for (const TextEdit& edit : edits) {
    result.append(text.substr(copied, edit.start - copied)).append(edit.text);
    copied = edit.start + edit.length;
  }
  return result.append(text.substr(copied));
}

TextEdits Compose(const TextEdits& first, std::u16string_view between, const TextEdits& second) {
  TextEdits whole;
  whole.reserve(first.size() + second.size());
  auto one = first.begin();
  auto two = second.begin();
  std::size_t made = 0;     // of the text between, what the first edits that are passed have put there
  std::size_t removed = 0;  // what they have taken from the text
  const auto beginOfOne = [&] { return one->start + made - removed; };
  const auto passOne = [&] {
    made += one->text.size();
    removed += one->length;
    return *one++;
  };
  while (one != first.end() || two != second.end()) {
    if (two == second.end() || (one != first.end() && beginOfOne() + one->text.size() <= two->start)) {
      whole.push_back(passOne());
      continue;
    }
    if (one == first.end() || two->start + two->length <= beginOfOne()) {
      whole.push_back({two->start + removed - made, two->length, two->text});
      ++two;
      continue;
    }
    const std::size_t begin = std::min(beginOfOne(), two->start);
    TextEdit joined{.start = begin + removed - made, .length = 0, .text = {}};
    std::size_t copied = begin;  // of the text between
    // The two of them share at least one place; what touches them belongs to them.
    std::size_t end = std::max(beginOfOne(), two->start) + 1;
    for (bool grows = true; grows;) {
      grows = false;
      if (one != first.end() && beginOfOne() < end) {
        end = std::max(end, beginOfOne() + one->text.size());
        passOne();
        grows = true;
      }
      if (two != second.end() && two->start < end) {
        joined.text.append(between.substr(copied, two->start - copied)).append(two->text);
        copied = two->start + two->length;
        end = std::max(end, copied);
        ++two;
        grows = true;
      }
    }
    joined.text.append(between.substr(copied, end - copied));
    joined.length = end + removed - made - joined.start;
    whole.push_back(std::move(joined));
  }
  return whole;
}

void DropIdleEdits(std::u16string_view text, TextEdits& edits) {
  std::erase_if(edits, [text](const TextEdit& edit) { return text.substr(edit.start, edit.length) == edit.text; });
}

}  // namespace scrivanta
