// A line of a script taken apart: the commands in it that hold co-ordinates. Comments and texts hold none.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "windows/ScriptDialect.h"

namespace scrivanta {

// A part of a line, in characters from 0.
struct LinePart {
  std::size_t start = 0;
  std::size_t length = 0;

  std::size_t end() const noexcept { return start + length; }
  std::u16string_view In(std::u16string_view line) const { return line.substr(start, length); }
};

struct CommandInLine {
  const CoordinateCommand* command = nullptr;
  LinePart name;
  std::vector<LinePart> arguments;  // without the blanks around them; words of a wordy command
  std::size_t end = 0;              // behind the last argument
};

class ScriptLines {
 public:
  explicit ScriptLines(ScriptDialect dialect) : dialect_(dialect) {}

  // The commands of the next line.
  std::vector<CommandInLine> Next(std::u16string_view line);

 private:
  bool IsInBlockComment(std::u16string_view line);
  std::size_t EndOfCode(std::u16string_view line) const;
  CommandInLine CommandAt(std::u16string_view code, LinePart name, const CoordinateCommand& command) const;

  ScriptDialect dialect_;
  bool inBlockComment_ = false;
};

// The value of a whole number that is written out; nothing for an expression or a variable.
std::optional<long long> LiteralNumber(std::u16string_view text);

}  // namespace scrivanta
