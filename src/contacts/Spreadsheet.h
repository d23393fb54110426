// The spreadsheet program that is running beside this one.
#pragma once

#include <optional>

#include "sheets/SheetFile.h"
#include "text/Interface.h"

namespace scrivanta {

class Spreadsheet : public Interface {
 public:
  // The sheet that is in front in it; nothing when no such program runs or it has no sheet open. Throws
  // std::runtime_error with what the program says.
  virtual std::optional<Sheet> ActiveSheet() = 0;
};

}  // namespace scrivanta
