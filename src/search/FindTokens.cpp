#include "search/FindTokens.h"

#include "text/LineText.h"

namespace scrivanta {

std::u16string TextOfBox(std::u16string_view box) {
  return WithReplaced(WithReplaced(box, kLineBreakToken, u"\r\n"), kTabToken, u"\t");
}

std::u16string BoxOfText(std::u16string_view text) {
  return WithReplaced(WithReplaced(text, u"\r\n", kLineBreakToken), u"\t", kTabToken);
}

}  // namespace scrivanta
