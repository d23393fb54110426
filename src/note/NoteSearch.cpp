#include "note/NoteSearch.h"

#include <algorithm>
#include <iterator>

#include "text/DecimalText.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

void NoteSearch::Find(std::u16string_view text, std::u16string_view what, bool isPattern, const RegExpEngine& engine) {
  places_.clear();
  if (what.empty()) {
    return;
  }
  NoProgress progress;
  if (isPattern) {
    const std::unique_ptr<RegExp> pattern = engine.Compile(what, {.ignoreCase = true, .multiLine = true});
    const auto take = [this](const RegExpMatch& match) {
      if (!match.value.empty()) {
        places_.push_back({.start = match.start, .length = match.value.size()});
      }
      return true;
    };
    pattern->Scan(text, 0, take, progress);
    return;
  }
  const LiteralFinder finder(what, true);
  for (std::size_t at = finder.Find(text, 0, progress); at != LiteralFinder::kNotFound;
       at = finder.Find(text, at + what.size(), progress)) {
    places_.push_back({.start = at, .length = what.size()});
  }
}

std::optional<std::size_t> NoteSearch::From(std::size_t position) const {
  if (places_.empty()) {
    return std::nullopt;
  }
  const auto found = std::ranges::lower_bound(places_, position, {}, &NotePlace::start);
  return found == places_.end() ? 0 : static_cast<std::size_t>(std::distance(places_.begin(), found));
}

std::optional<std::size_t> NoteSearch::Before(std::size_t position) const {
  if (places_.empty()) {
    return std::nullopt;
  }
  const auto found = std::ranges::lower_bound(places_, position, {}, &NotePlace::start);
  return (found == places_.begin() ? places_.size() : static_cast<std::size_t>(std::distance(places_.begin(), found))) -
         1;
}

std::u16string NoteSearch::CountText(std::optional<std::size_t> index) const {
  return DecimalText(index ? *index + 1 : 0) + u"/" + DecimalText(places_.size());
}

}  // namespace scrivanta
