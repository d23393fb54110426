// A text seen as pieces of the one that it was made of: what stays when a command gives a new text for an old one, and
// where it has gone. Formats, the view and the caret follow it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace scrivanta {

// One stretch of the new text.
struct TextPiece {
  // Kept: where it begins in the old text. Else: the place of the old text that it stands for, or has come to.
  std::size_t from = 0;
  std::size_t length = 0;
  bool isKept = false;

  friend bool operator==(const TextPiece&, const TextPiece&) = default;
};

// In the order of the new text, all of it. No unit of the old text is kept twice.
using TextPieces = std::vector<TextPiece>;

// In both texts a CR ends a line, as an edit control has them. Lines that are the same are found wherever they have
// gone; then those that have lost or got blanks at their ends; then changed lines by their neighbours, and in them what
// is the same. About linear in the length of both.
TextPieces MatchTexts(std::u16string_view oldText, std::u16string_view newText);

// Whether what is kept has kept its order.
bool KeepsOrder(const TextPieces& pieces);

// The same, but that only as much is kept as has kept its order.
TextPieces InOrder(TextPieces pieces);

// Where a place of the old text is in the new one: with the unit there, else with what is left of its line, else with
// what is left nearest to it.
std::size_t PlaceAfter(const TextPieces& pieces, std::u16string_view oldText, std::size_t place);

// The stretches of both texts that differ, when the order is kept.
struct TextChange {
  std::size_t oldStart = 0;
  std::size_t oldLength = 0;
  std::size_t newStart = 0;
  std::size_t newLength = 0;
};
std::vector<TextChange> ChangesOf(const TextPieces& pieces, std::size_t oldLength);

}  // namespace scrivanta
