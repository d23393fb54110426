#include "shell/window/InstanceNumber.h"

#include <algorithm>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr int kMostDigits = 8;

// 0 when the text is no number of an instance.
int NumberIn(std::u16string_view text) {
  const bool isNumber = !text.empty() && text.size() <= kMostDigits &&
                        std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
  int number = 0;
  for (const char16_t digit : isNumber ? text : std::u16string_view()) {
    number = number * 10 + (digit - u'0');
  }
  return number;
}

}  // namespace

std::u16string NumberedCaption(std::u16string_view caption, std::span<const std::u16string> titles) {
  const std::u16string prefix = std::u16string(caption) + u'.';
  int largest = 0;
  for (const std::u16string_view title : titles) {
    if (title.starts_with(prefix)) {
      largest = std::max(largest, NumberIn(title.substr(prefix.size())));
    }
  }
  return prefix + DecimalText(largest + 1);
}

}  // namespace scrivanta
