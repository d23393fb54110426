// The pieces that the bytes of a rich text (Rich Text Format 1.9) are made of, one after the other.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace scrivanta {

struct RtfToken {
  enum class Kind { kOpen, kClose, kWord, kSymbol, kText };

  Kind kind = Kind::kText;
  // All of it: of a word with the blank that ends it, and the bytes that follow \bin; of \' with its two digits.
  std::string_view bytes;
  std::size_t begin = 0;
  std::string_view name;  // of a word, without the backslash; of a symbol the byte behind it
  std::optional<int> number;

  std::size_t end() const noexcept { return begin + bytes.size(); }
  bool Is(std::string_view word) const noexcept { return kind == Kind::kWord && name == word; }
};

class RtfTokens {
 public:
  explicit RtfTokens(std::string_view rtf, std::size_t begin = 0) : rtf_(rtf), at_(begin) {}

  // Nothing at the end.
  std::optional<RtfToken> Next();
  // From here on it goes on at that byte.
  void GoTo(std::size_t at) noexcept { at_ = at; }

 private:
  RtfToken Control();
  void ReadWord(RtfToken& token);

  std::string_view rtf_;
  std::size_t at_;
};

}  // namespace scrivanta
