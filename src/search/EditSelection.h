// The selection of the edit box and the colours of its text, in characters from 0.
#pragma once

#include <cstddef>

#include "shell/workbench/Editor.h"

namespace scrivanta {

// Selects and scrolls the caret into view; start 0 with length -1 selects all.
void EditSetSelection(Editor& editor, std::ptrdiff_t start, std::ptrdiff_t length);
std::size_t EditGetSelStart(const Editor& editor);
std::size_t EditGetSelLength(const Editor& editor);

// Selects a range and colours it.
void setRtxtColor(Editor& editor, TextRange range, const TextColours& colours);

}  // namespace scrivanta
