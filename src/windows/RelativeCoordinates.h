// Scripts with co-ordinates of the screen made relative to a point.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "text/Encoding.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"
#include "text/Progress.h"
#include "windows/ScriptDialect.h"

namespace scrivanta {

// In pixels of the whole desktop; negative on a screen to the left or above.
struct ScreenPoint {
  long long x = 0;
  long long y = 0;

  bool operator==(const ScreenPoint&) const = default;
};

// The first point of the script becomes 0,0.
struct FromFirstPoint {};
// Each point counts from the one before it; the first one stays.
struct FromPreviousPoint {};
// The client area of a window, found again by its caption when the script runs.
struct FromWindow {
  ScreenPoint corner;
  std::u16string caption;
};
using CoordinateOrigin = std::variant<ScreenPoint, FromFirstPoint, FromPreviousPoint, FromWindow>;

struct CoordinateOptions {
  ScriptDialect dialect = ScriptDialect::kPairs;
  CoordinateOrigin origin;
  Encoding encoding = Encoding::kGbk;
};

// A place that was left as it stood.
struct LeftCoordinates {
  std::uint64_t line = 0;  // from 1
  std::u16string text;     // the command
};

struct CoordinateReport {
  std::uint64_t points = 0;  // that have become relative
  std::vector<LeftCoordinates> left;
};

// The family whose commands stand in most lines, kPairs when none does.
ScriptDialect DialectOf(LineReader& lines, Encoding encoding);

// Layout and comments stay, and so do expressions and variables, which the report names. Throws FileError, Interrupted.
CoordinateReport MakeCoordinatesRelative(LineReader& in, LineWriter& out, const CoordinateOptions& options);

}  // namespace scrivanta
