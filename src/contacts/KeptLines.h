// Lines of a card as text, whatever their bytes are: a line that is no text of UTF-8, holds control characters or
// begins with "~" becomes "~" and the line with "=XX" for what cannot stand there.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// Whether a line needs no mark.
bool CanStandAsKept(std::string_view line);

// Lines are separated by LF.
void AppendKeptLines(std::string_view lines, std::string& kept);

// One line in the marked form, whatever it holds: of a property that is written back even if no field holds its text.
void AppendMarkedLine(std::string_view line, std::string& kept);
bool IsMarked(std::string_view kept);

// The bytes of one kept line.
std::string LineOfKept(std::string_view kept);

}  // namespace scrivanta
