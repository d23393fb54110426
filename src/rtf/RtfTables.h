// The fonts and colours that the numbers in a rich text mean (Rich Text Format 1.9).
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

struct RtfTables {
  std::map<int, std::string> fonts;  // what follows \fN in the table
  std::vector<std::string> colours;  // without the semicolon; an empty one is the reader's own

  bool operator==(const RtfTables&) const = default;
};

RtfTables ReadRtfTables(std::string_view rtf);

// Whether the number of the control word is one of a font, or of a colour.
bool IsFontWord(std::string_view word);
bool IsColourWord(std::string_view word);

}  // namespace scrivanta
