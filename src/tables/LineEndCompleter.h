#pragma once

#include <string_view>

#include "text/LineWriter.h"

namespace scrivanta {

// Writes text that comes in pieces with every line end made CR LF. The bytes are in an encoding in which CR and LF are
// never part of another character.
class LineEndCompleter {
 public:
  explicit LineEndCompleter(LineWriter& out) : out_(out) {}

  void Write(std::string_view bytes);
  // Ends the last line, unless there is none.
  void Finish();

 private:
  void EndLine(std::string_view line);

  LineWriter& out_;
  bool afterReturn_ = false;  // the last byte was a CR, and the line is ended
  bool isWithinLine_ = false;
};

}  // namespace scrivanta
