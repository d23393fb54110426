#include "shell/history/UndoElement.h"

#include <algorithm>

namespace scrivanta {

std::u16string Change(std::u16string_view textA, std::u16string_view textB, std::int32_t position) {
  const std::u16string_view longer = textA.size() < textB.size() ? textB : textA;
  const std::size_t difference = longer.size() - std::min(textA.size(), textB.size());
  const auto start = std::max<std::int64_t>(std::int64_t{position} - static_cast<std::int64_t>(difference), 1) - 1;
  return std::u16string(longer.substr(std::min(static_cast<std::size_t>(start), longer.size()), difference));
}

}  // namespace scrivanta
