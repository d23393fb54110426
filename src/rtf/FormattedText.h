// A text with its formats, taken apart so that pieces of it can be put together anew: what stays when a command changes
// a rich text brings its formats along.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rtf/RtfByLines.h"
#include "text/TextPieces.h"

namespace scrivanta {

// Of characters or of a paragraph: control words of rich text (RTF 1.9) under what they set, in the order of that. A
// font or a colour stands there as its entry in the table, so that formats of two rich texts can be compared and mixed.
using FormatWords = std::vector<std::pair<std::string, std::string>>;
using SharedFormat = std::shared_ptr<const FormatWords>;

struct FormatRun {
  std::size_t length = 0;
  SharedFormat format;
};

// The formats of a stretch of text: of its units, and of the paragraphs that it has a part in.
struct TextFormats {
  std::vector<FormatRun> runs;
  std::vector<SharedFormat> paragraphs;

  std::size_t length() const;
};

class FormattedText {
 public:
  // Nothing when the bytes are no rich text, or hold what cannot be taken apart: tables, pictures, fields.
  static std::optional<FormattedText> Read(std::string_view rtf);

  FormattedText() : FormattedText(std::u16string(), TextFormats()) {}
  FormattedText(std::u16string text, TextFormats formats);

  // One CR ends a line.
  const std::u16string& text() const noexcept { return text_; }
  const TextFormats& formats() const noexcept { return formats_; }
  TextFormats FormatsOf(std::size_t start, std::size_t length) const;

  // The text that these pieces of this one make: what is new has the format of what it stands for.
  FormattedText Rearranged(const TextPieces& pieces, std::u16string text) const;

  RtfByLines ToRtf() const;

 private:
  std::u16string text_;
  TextFormats formats_;
};

}  // namespace scrivanta
