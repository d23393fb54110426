// The lines as they are set: whole, wrapped into several pieces, or cut.
#pragma once

#include <cstdint>
#include <string_view>

#include "tables/NewspaperColumns.h"
#include "text/CharacterBytes.h"

namespace scrivanta {

struct NewspaperPiece {
  std::string_view text;
  std::size_t width = 0;
  std::string_view cutOff;
  std::uint64_t line = 0;  // from 1
};

// Calls take with each piece, its views valid until it returns.
template <typename Take>
void ForEachPiece(const LinePass& lines, const NewspaperOptions& options, const Take& take) {
  const TextWidth measure(options.encoding, options.unit);
  const bool isOpen = options.width == 0 || options.tooWide == TooWide::kWiden;
  const std::unique_ptr<LineReader> reader = lines();
  while (reader->Next()) {
    const std::string_view line = reader->line();
    if (const std::size_t width = measure.Of(line); isOpen || width <= options.width) {
      take(NewspaperPiece{line, width, {}, reader->number()});
      continue;
    }
    std::string_view rest = line;
    while (!rest.empty()) {
      FittingPart part = measure.Fit(rest, options.width);
      if (part.bytes == 0) {  // one character is wider than the column
        part.bytes = CharacterBytes(options.encoding, rest);
        part.width = measure.Of(rest.substr(0, part.bytes));
      }
      const std::string_view text = rest.substr(0, part.bytes);
      rest.remove_prefix(part.bytes);
      if (options.tooWide == TooWide::kCut) {
        take(NewspaperPiece{text, part.width, rest, reader->number()});
        break;
      }
      take(NewspaperPiece{text, part.width, {}, reader->number()});
    }
  }
}

}  // namespace scrivanta
