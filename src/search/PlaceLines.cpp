#include "search/PlaceLines.h"

#include <algorithm>

#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kRest = u"…";

}  // namespace

std::size_t LineCounter::NumberAt(std::size_t place) {
  for (; at_ < place; ++at_) {
    const bool isReturnOfBreak = text_[at_] == u'\r' && at_ + 1 < text_.size() && text_[at_ + 1] == u'\n';
    number_ += (text_[at_] == u'\n' || text_[at_] == u'\r') && !isReturnOfBreak ? 1 : 0;
  }
  return number_;
}

std::size_t BeginOfLineAt(std::u16string_view text, std::size_t place) {
  return place == 0 ? 0 : text.find_last_of(u"\r\n", place - 1) + 1;
}

std::size_t EndOfLineAt(std::u16string_view text, std::size_t place) {
  return std::min(text.find_first_of(u"\r\n", place), text.size());
}

std::u16string Beginning(std::u16string_view text, std::size_t most) {
  if (text.size() <= most) {
    return std::u16string(text);
  }
  return std::u16string(text.substr(0, most - (IsHighSurrogate(text[most - 1]) ? 1 : 0))).append(kRest);
}

std::u16string Ending(std::u16string_view text, std::size_t most) {
  if (text.size() <= most) {
    return std::u16string(text);
  }
  const std::size_t begin = text.size() - most;
  return std::u16string(kRest).append(text.substr(begin + (IsLowSurrogate(text[begin]) ? 1 : 0)));
}

}  // namespace scrivanta
