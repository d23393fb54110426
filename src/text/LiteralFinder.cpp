#include "text/LiteralFinder.h"

#include <algorithm>

#include "text/UpperCase.h"

namespace scrivanta {

namespace {

// Characters searched between two reports.
constexpr std::size_t kCharactersPerReport = 1024 * 1024;

}  // namespace

LiteralFinder::LiteralFinder(std::u16string_view needle, bool ignoreCase)
    : needle_(ignoreCase ? UpperCase(needle) : needle), ignoreCase_(ignoreCase) {}

bool LiteralFinder::IsAt(std::u16string_view text, std::size_t position) const {
  if (position > text.size() || text.size() - position < needle_.size()) {
    return false;
  }
  const std::u16string_view candidate = text.substr(position, needle_.size());
  if (!ignoreCase_) {
    return candidate == needle_;
  }
  return std::equal(candidate.begin(), candidate.end(), needle_.begin(),
                    [](char16_t c, char16_t upper) { return UpperCase(c) == upper; });
}

std::size_t LiteralFinder::Find(std::u16string_view text, std::size_t from, Progress& progress) const {
  while (from < text.size() && text.size() - from >= needle_.size()) {
    const std::size_t next = std::min(from + kCharactersPerReport, text.size());
    const std::u16string_view stretch = text.substr(0, std::min(next + needle_.size() - 1, text.size()));
    const std::size_t found = ignoreCase_ ? FindIgnoringCase(stretch, from) : stretch.find(needle_, from);
    if (found != std::u16string_view::npos) {
      return found;
    }
    from = next;
    progress.Report(from, text.size());
  }
  return kNotFound;
}

std::size_t LiteralFinder::FindIgnoringCase(std::u16string_view text, std::size_t from) const {
  for (std::size_t position = from; position + needle_.size() <= text.size(); ++position) {
    if (UpperCase(text[position]) == needle_.front() && IsAt(text, position)) {
      return position;
    }
  }
  return kNotFound;
}

std::size_t LiteralFinder::FindBackward(std::u16string_view text, std::size_t before, Progress& progress) const {
  if (text.size() < needle_.size()) {
    return kNotFound;
  }
  for (std::size_t position = std::min(before, text.size() - needle_.size() + 1); position > 0; --position) {
    if (IsAt(text, position - 1)) {
      return position - 1;
    }
    if (position % kCharactersPerReport == 0) {
      progress.Report(text.size() - position, text.size());
    }
  }
  return kNotFound;
}

}  // namespace scrivanta
