#include "tables/RecordFormat.h"

#include <utility>

namespace scrivanta {

RecordFormat FormatOfDelimiter(std::u16string_view name, Encoding encoding) {
  static constexpr std::pair<std::u16string_view, Separation> kNames[] = {
      {u"tab", Separation::kTab},
      {u"comma", Separation::kComma},
      {u"semicolon", Separation::kSemicolon},
      {u"blanks", Separation::kBlanks},
  };
  RecordFormat format{.encoding = encoding};
  for (const auto& [known, separation] : kNames) {
    if (name == known) {
      format.separation = separation;
      return format;
    }
  }
  format.separation = Separation::kText;
  format.text = name;
  return format;
}

}  // namespace scrivanta
