#include "regexp/RegExp.h"

namespace scrivanta {

bool RegExp::Matches(std::u16string_view text, Progress& progress) {
  bool found = false;
  Scan(
      text, 0,
      [&found](const RegExpMatch&) {
        found = true;
        return false;
      },
      progress);
  return found;
}

}  // namespace scrivanta
