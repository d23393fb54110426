// A text with its formats, taken apart so that pieces of it can be put together anew: what stays when a command changes
// a rich text brings its formats along.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
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

  friend bool operator==(const FormatRun& a, const FormatRun& b);
};

// The formats of a stretch of text: of its units, and of the paragraphs that it has a part in.
struct TextFormats {
  std::vector<FormatRun> runs;
  std::vector<SharedFormat> paragraphs;

  std::size_t length() const;

  friend bool operator==(const TextFormats& a, const TextFormats& b);
};
using SharedFormats = std::shared_ptr<const TextFormats>;

// Of two stretches one behind the other; the last paragraph of the first goes on in the second.
TextFormats Joined(const TextFormats& first, const TextFormats& second);

// A stretch of a text that becomes another one. Without formats it takes those of what it stands for.
struct FormattedChange {
  std::size_t start = 0;
  std::size_t length = 0;
  std::u16string_view text;
  SharedFormats formats;
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
  // The text that these pieces of this one make: what is new has the format of what it stands for.
  FormattedText Rearranged(const TextPieces& pieces, std::u16string text) const;

  // The changes come in the order of the text, and do not overlap.
  FormattedText Changed(std::span<const FormattedChange> changes) const;

  RtfByLines ToRtf() const;

 private:
  std::u16string text_;
  TextFormats formats_;
};

// Finds formats by their places in a text, which outlives it.
class FormatFinder {
 public:
  explicit FormatFinder(const FormattedText& text);

  // A place at the end of the text has the format of its last unit.
  SharedFormat At(std::size_t place) const;
  const SharedFormat& ParagraphAt(std::size_t place) const;
  TextFormats Of(std::size_t start, std::size_t length) const;
  void AppendRuns(std::size_t start, std::size_t length, std::vector<FormatRun>& runs) const;

 private:
  const TextFormats& formats_;
  std::vector<std::size_t> runStarts_;
  std::vector<std::size_t> lineStarts_;
};

}  // namespace scrivanta
