// The document's text inside a rich text (RTF 1.9), with the place of every character among the bytes: what lies in
// font and colour tables, pictures, fields' instructions and the like is no text of the document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

class RtfText {
 public:
  // Takes any bytes; what is no rich text has no text. The bytes outlive the object.
  explicit RtfText(std::string_view rtf);

  // Line breaks are CR LF. The one that ends the last paragraph is none of the document's. A byte of a character set
  // that is not known here stands as U+FFFF.
  const std::u16string& text() const noexcept { return text_; }

  // A stretch of text(), in characters from 0, and what is to take its place.
  struct Replacement {
    std::size_t start = 0;
    std::size_t length = 0;
    std::u16string text;
  };
  struct Outcome {
    std::string rtf;
    std::size_t replaced = 0;
    std::size_t split = 0;  // not replaced, because they cannot be
  };
  // Whether the stretch is not empty and no formatting code stands between its characters.
  bool CanReplace(const Replacement& replacement) const;
  // The replacements do not overlap and come in ascending order. Every byte outside the stretches stays as it is.
  Outcome Replace(std::span<const Replacement> replacements) const;

 private:
  class Builder;

  struct Place {
    std::uint32_t begin = 0;  // bytes
    std::uint32_t end = 0;
  };
  // What holds for the text from a character on.
  struct Context {
    std::size_t start = 0;
    bool isChineseCharset = true;
    std::uint32_t skippedAfterUnicode = 1;

    bool HoldsSameAs(const Context& other) const noexcept {
      return isChineseCharset == other.isChineseCharset && skippedAfterUnicode == other.skippedAfterUnicode;
    }
  };

  const Context& ContextAt(std::size_t character) const;
  std::string EscapedFor(const Replacement& replacement) const;

  std::string_view rtf_;
  std::u16string text_;
  std::vector<Place> places_;  // of every character of text_
  std::vector<Context> contexts_;
};

}  // namespace scrivanta
