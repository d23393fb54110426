// The text of a console command's input, whole or in pieces, and the progress of the work on it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "batch/BatchCommand.h"
#include "text/Progress.h"

namespace scrivanta {

class TextInput final : public Progress {
 public:
  // A piece of the text, and whether it is the last one.
  using Taker = std::function<void(std::u16string_view piece, bool isLast)>;

  explicit TextInput(BatchContext& context);

  // The whole text at once, or pieces of it that end behind a line feed, which is never part of another character.
  // Pieces need little memory and stay in the processor's cache. A RegExpTooComplex of what takes them comes out with
  // its position in the whole text. Throws FileError, Interrupted, and what `take` throws.
  void Visit(bool inPieces, const Taker& take);
  std::u16string ReadAll();

  // On a piece, the work has come as far as the input was read.
  void Report(std::uint64_t done, std::uint64_t total) override;

 private:
  bool ReadBlock();
  void DecodeInto(std::u16string& text, std::size_t count);
  void Take(std::u16string_view text, bool isLast, const Taker& take);

  BatchContext& context_;
  std::uint64_t total_;  // bytes; 0 while it is unknown
  std::uint64_t read_ = 0;
  std::string bytes_;  // read and not yet decoded
  std::size_t wholeLines_ = 0;
  std::size_t taken_ = 0;  // characters
  bool inPieces_ = false;
};

}  // namespace scrivanta
