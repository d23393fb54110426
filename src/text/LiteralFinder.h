// A plain search for one text in another.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/Progress.h"

namespace scrivanta {

class LiteralFinder {
 public:
  static constexpr std::size_t kNotFound = std::u16string_view::npos;

  // The needle is not empty. Ignoring case compares the upper cases of both.
  LiteralFinder(std::u16string_view needle, bool ignoreCase);

  // Where the first occurrence stands that begins at `from` or later, in characters from 0; kNotFound when there is
  // none. Throws Interrupted.
  std::size_t Find(std::u16string_view text, std::size_t from, Progress& progress) const;
  // Where the last occurrence stands that begins before `before`.
  std::size_t FindBackward(std::u16string_view text, std::size_t before, Progress& progress) const;

  std::size_t length() const noexcept { return needle_.size(); }
  bool IsAt(std::u16string_view text, std::size_t position) const;

 private:
  std::size_t FindIgnoringCase(std::u16string_view text, std::size_t from) const;

  std::u16string needle_;
  bool ignoreCase_;
};

}  // namespace scrivanta
