#include "tables/TextChoices.h"

#include <iterator>

#include "shell/workbench/ResultFiles.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

RecordFormat FormatOfWord(std::u16string_view word) {
  static constexpr Separation kMeanings[] = {Separation::kTab, Separation::kComma, Separation::kSemicolon,
                                             Separation::kBlanks};
  if (word.empty()) {
    throw ChoiceError("there is no delimiter", u"请选择或输入分隔符。");
  }
  for (std::size_t i = 0; i < std::size(kMeanings); ++i) {
    if (word == kDelimiterWords[i]) {
      return {.separation = kMeanings[i], .encoding = kWorkFileEncoding};
    }
  }
  return {.separation = Separation::kText, .text = std::u16string(word), .encoding = kWorkFileEncoding};
}

std::size_t NumberTyped(std::u16string_view text, std::u16string_view name, std::size_t least, std::size_t most,
                        std::size_t empty) {
  if (text.empty()) {
    return empty;
  }
  const long long number = LeadingWholeNumber(text);
  if (number < static_cast<long long>(least) || number > static_cast<long long>(most)) {
    throw ChoiceError("a number is out of its limits", u"“" + std::u16string(name) + u"”应在" + DecimalText(least) +
                                                           u"至" + DecimalText(most) + u"之间。");
  }
  return static_cast<std::size_t>(number);
}

}  // namespace scrivanta
