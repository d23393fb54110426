// Cards out of lines, one line at a time, so that a book of any length takes the memory of one card.
//
// What phones and other programs write is taken as it comes: soft breaks of QUOTED-PRINTABLE wherever they stand,
// folded lines, photos with and without blanks before their lines and an empty line behind them, cards in cards,
// remarks. Cards of 3.0 and 4.0 come out as 2.1 would have them.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/CardProperty.h"

namespace scrivanta {

class CardParser {
 public:
  // Bytes without the line end; lines count from 1. Throws ExplainedError for a card of more than kLargestCard bytes.
  void TakeLine(std::string_view line, std::uint64_t number);
  // No more lines: a card without its END ends here.
  void End();

  // The cards that are complete, in the order of their ends.
  std::optional<Card> Next();
  // Lines outside of all cards that are not empty, remarks left aside; their numbers, the first hundred.
  const std::vector<std::uint64_t>& linesOutside() const noexcept { return linesOutside_; }

  static constexpr std::size_t kLargestCard = 64 * 1024 * 1024;

 private:
  struct OpenCard {
    Card card;
    int version = 2;
    std::size_t bytes = 0;
  };

  bool Continues(std::string_view line) const;
  bool ContinuesEncoded(std::string_view line) const;
  void Append(std::string_view line);
  void Begin(std::string_view line, std::uint64_t number);
  void TakeNested(std::string_view line);
  void FinishProperty();
  void CloseCard();
  void Count(std::size_t bytes);

  std::vector<OpenCard> open_;
  std::optional<CardProperty> property_;  // may go on with the next line
  bool joins_ = false;                    // its last line says so
  bool allEncoded_ = false;               // nothing but encoded bytes so far
  bool afterEmptyLine_ = false;           // its value ends with one
  int nested_ = 0;                        // BEGINs without their END in the property
  std::deque<Card> complete_;
  std::vector<std::uint64_t> linesOutside_;
};

}  // namespace scrivanta
