// Contacts out of a file of cards, with memory for one card.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "contacts/CardParser.h"
#include "text/LineReader.h"

namespace scrivanta {

class CardReader {
 public:
  CardReader(ByteSource& source, Progress& progress) : lines_(source, LineEnds::kCrLfOrLf, progress) {}

  // The next card; nothing at the end. Throws FileError, ExplainedError, Interrupted.
  std::optional<Card> Next();
  const std::vector<std::uint64_t>& linesOutside() const noexcept { return parser_.linesOutside(); }

 private:
  LineReader lines_;
  CardParser parser_;
  bool atEnd_ = false;
};

}  // namespace scrivanta
