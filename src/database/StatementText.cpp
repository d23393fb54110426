#include "database/StatementText.h"

#include <algorithm>
#include <string>

#include "text/UpperCase.h"

namespace scrivanta {

bool OnlyReads(std::u16string_view statement) {
  static constexpr std::u16string_view kReading[] = {u"SELECT", u"VALUES", u"SHOW", u"EXPLAIN", u"TABLE"};
  const auto isLetter = [](char16_t unit) { return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z'; };
  statement.remove_prefix(std::min(statement.find_first_not_of(u" \t\r\n("), statement.size()));
  const auto end = std::ranges::find_if_not(statement, isLetter);
  const std::u16string word = UpperCase(std::u16string_view(statement.begin(), end));
  return std::ranges::find(kReading, word) != std::end(kReading);
}

}  // namespace scrivanta
