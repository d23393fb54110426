#include "database/Database.h"

namespace scrivanta {

std::u16string QuotedName(std::u16string_view name, char16_t open, char16_t close) {
  std::u16string quoted(1, open);
  for (const char16_t unit : name) {
    quoted += unit;
    if (unit == close) {
      quoted += unit;
    }
  }
  return quoted + close;
}

}  // namespace scrivanta
