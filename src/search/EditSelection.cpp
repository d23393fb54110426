#include "search/EditSelection.h"

#include <algorithm>

namespace scrivanta {

void EditSetSelection(Editor& editor, std::ptrdiff_t start, std::ptrdiff_t length) {
  if (start == 0 && length == -1) {
    editor.SetSelection({{0}, editor.Text().size()});
    return;
  }
  editor.SetSelection({{static_cast<std::size_t>(std::max<std::ptrdiff_t>(start, 0))},
                       static_cast<std::size_t>(std::max<std::ptrdiff_t>(length, 0))});
}

std::size_t EditGetSelStart(const Editor& editor) {
  return editor.Selection().start.value;
}

std::size_t EditGetSelLength(const Editor& editor) {
  return editor.Selection().length;
}

void setRtxtColor(Editor& editor, TextRange range, const TextColours& colours) {
  editor.SetSelection(range);
  editor.SetColours({&range, 1}, colours);
}

}  // namespace scrivanta
