// The commands of the menu that act where the caret is.
#pragma once

#include "shell/workbench/Workbench.h"

namespace scrivanta {

// Moves the caret to the beginning of a line of the document, counted from 1.
void mnuGotoLine(Workbench& workbench);

// Types the character that stands above the caret: the one in the same column of the line above, columns counted in
// characters. Nothing where there is none.
void mnuCopyAboveChar(Workbench& workbench);

}  // namespace scrivanta
