// What an operation works on: the text that it is given, or the content of the file that this text names.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "text/DocumentFormat.h"

namespace scrivanta {

class SourceText {
 public:
  // A source that names no file is the text itself, whatever it looks like. Throws FileError when the file cannot be
  // read.
  explicit SourceText(std::u16string_view source);

  // Of a file, lines end with CR LF, unless it keeps its line ends.
  const std::u16string& text() const noexcept { return text_; }
  // Of a binary file, or one with line ends of several kinds: they are to stay as they stand.
  bool keepsLineEnds() const noexcept;
  // Replaces the content of the file in one step, in its own encoding and with its own line ends. Nothing happens when
  // the source was a text, or when the file holds this text already. Throws FileError.
  void Write(std::u16string_view text) const;

 private:
  std::filesystem::path file_;  // empty: the source was a text
  std::u16string text_;
  DocumentFormat format_;
};

}  // namespace scrivanta
