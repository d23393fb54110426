// A date that stands in the name of a file.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExp.h"
#include "system/MomentText.h"

namespace scrivanta {

class NameDate {
 public:
  // Of letters for the digits of a moment, "IMG_YYYYMMDD_HHMMSS" (YYYY or YY, MM, DD, HH, MM behind the hour or mm,
  // SS), or of "%Y %m %d %H %M %S", where letters alone stand for themselves; "*" is any text, "?" any character, and
  // all else stands for itself. What holds "\" or
  // "[0-9]" is a regular expression whose groups are year, month, day, hour, minute and second. Throws ExplainedError
  // for one that gives neither a date nor a time.
  explicit NameDate(std::u16string_view pattern);

  // From the first place in the name that fits and is a moment.
  std::optional<PartialMoment> In(std::u16string_view name) const;

 private:
  using Part = std::u16string MomentParts::*;

  std::unique_ptr<RegExp> expression_;
  std::vector<Part> parts_;  // what the groups of the expression are
};

}  // namespace scrivanta
