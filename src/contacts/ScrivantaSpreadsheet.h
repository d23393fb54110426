// The spreadsheet program by its automation object.
#pragma once

#include "contacts/Spreadsheet.h"

namespace scrivanta {

class ScrivantaSpreadsheet final : public Spreadsheet {
 public:
  std::optional<Sheet> ActiveSheet() override;
};

}  // namespace scrivanta
