// What is typed into the windows of this subsystem, as the transforms take it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tables/RecordFormat.h"
#include "text/ExplainedError.h"

namespace scrivanta {

// Something typed that cannot be used; the text says what is wanted.
class ChoiceError : public ExplainedError {
 public:
  using ExplainedError::ExplainedError;
};

// The words that a list of delimiters offers, and what they mean; anything else is a delimiter by itself.
inline constexpr std::u16string_view kDelimiterWords[] = {u"TAB符", u"逗号", u"分号", u"连续空白"};
// Throws ChoiceError for an empty text.
RecordFormat FormatOfWord(std::u16string_view word);
// Units in the order in which the windows offer them.
inline constexpr std::u16string_view kWidthUnitWords[] = {u"GBK字节", u"屏幕格", u"字符"};

// The whole number, or `empty` for an empty text. Throws ChoiceError for one outside the limits, with the name of the
// box.
std::size_t NumberTyped(std::u16string_view text, std::u16string_view name, std::size_t least, std::size_t most,
                        std::size_t empty);

}  // namespace scrivanta
