#pragma once

#include <string_view>

#include "shell/workbench/Editor.h"

namespace scrivanta {

// Replaces what is selected, and selects what has taken its place: the next command goes on with it.
inline void ReplaceSelected(Editor& editor, std::u16string_view text) {
  const TextPos start = editor.Selection().start;
  editor.ReplaceSelection(text);
  editor.SetSelection({start, editor.Selection().end().value - start.value});
}

}  // namespace scrivanta
