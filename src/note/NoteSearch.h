// The places of a text or a pattern in a note.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"

namespace scrivanta {

struct NotePlace {
  std::size_t start = 0;
  std::size_t length = 0;

  friend bool operator==(const NotePlace&, const NotePlace&) = default;
};

class NoteSearch {
 public:
  // Finds all places, capitals and small letters the same; a pattern's empty matches are none. Throws
  // RegExpSyntaxError, RegExpTooComplex.
  void Find(std::u16string_view text, std::u16string_view what, bool isPattern, const RegExpEngine& engine);
  void Clear() { places_.clear(); }
  // Ascending.
  const std::vector<NotePlace>& places() const noexcept { return places_; }

  // The index of the first place that begins at the position or behind it, of the last that begins before it; around
  // the end. Nothing without places.
  std::optional<std::size_t> From(std::size_t position) const;
  std::optional<std::size_t> Before(std::size_t position) const;
  // "3/17" for the third place; "0/17" for none of them.
  std::u16string CountText(std::optional<std::size_t> index) const;

 private:
  std::vector<NotePlace> places_;
};

}  // namespace scrivanta
