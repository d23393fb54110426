// Takes a large edit apart into the lines that really differ: what a command has changed here and there in a whole
// document is then kept and undone as just that.
#pragma once

#include <vector>

#include "shell/history/ControlEdit.h"

namespace scrivanta {

// Edits that together do the same, in order, each in the text that those before it have left. The edit alone where
// taking it apart would not save memory. Linear in the length of the edit; the edits are not always the fewest.
std::vector<ControlEdit> SplitByLines(ControlEdit edit);

}  // namespace scrivanta
