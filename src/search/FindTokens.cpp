#include "search/FindTokens.h"

namespace scrivanta {

std::u16string TextOfBox(std::u16string_view box) {
  return WithReplaced(WithReplaced(box, kLineBreakToken, u"\r\n"), kTabToken, u"\t");
}

std::u16string BoxOfText(std::u16string_view text) {
  return WithReplaced(WithReplaced(text, u"\r\n", kLineBreakToken), u"\t", kTabToken);
}

std::u16string WithReplaced(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
  std::u16string result;
  for (;;) {
    const std::size_t found = text.find(from);
    result += text.substr(0, found);
    if (found == std::u16string_view::npos) {
      return result;
    }
    result += to;
    text.remove_prefix(found + from.size());
  }
}

}  // namespace scrivanta
