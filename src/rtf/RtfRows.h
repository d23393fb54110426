// The rows of tables as an edit control writes them that leaves out \intbl (Rich Text Format 1.9).
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// Says of the cells of every row that they are in the table: without it each is a paragraph of its own to whoever reads
// them. A control may also put the digits that a row begins with, or a blank, directly behind the number that ends the
// definition of the row, to which they then belong: the text of the control, where rows begin and end with CR LF, tells
// which they are. The characters of the rich text are ASCII.
std::string WithRowsInTables(std::string_view rtf, std::u16string_view controlText);

}  // namespace scrivanta
