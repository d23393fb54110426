#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

inline constexpr std::string_view kRtfLineEnd = "\\par \r\n";

// A rich text (Rich Text Format 1.9) that may be cut between its lines: each begins in the format that the header
// leaves, and ends with kRtfLineEnd, the last one too.
struct RtfByLines {
  std::string header;  // its first bytes, with the brace that the whole closes
  std::string lines;

  std::string Whole() const { return header + lines + "}"; }
};

}  // namespace scrivanta
