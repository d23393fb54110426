#include "lines/CaretHandlers.h"

#include <optional>

#include "shell/workbench/ResultFiles.h"
#include "text/LineText.h"
#include "text/Numbers.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// How many code units the character at the front takes: two for a surrogate pair. The text is not empty.
std::size_t FirstCharacterLength(std::u16string_view text) {
  return text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]) ? 2 : 1;
}

std::u16string_view CharacterAbove(std::u16string_view text, TextPos caret) {
  const std::size_t lineBreak = text.substr(0, caret.value).rfind(kLineBreak);
  if (lineBreak == std::u16string_view::npos) {
    return {};
  }
  std::u16string_view before = text.substr(lineBreak + kLineBreak.size(), caret.value - lineBreak - kLineBreak.size());
  std::u16string_view above = text.substr(0, lineBreak);
  if (const std::size_t previous = above.rfind(kLineBreak); previous != std::u16string_view::npos) {
    above.remove_prefix(previous + kLineBreak.size());
  }
  while (!before.empty() && !above.empty()) {
    before.remove_prefix(FirstCharacterLength(before));
    above.remove_prefix(FirstCharacterLength(above));
  }
  return above.empty() ? above : above.substr(0, FirstCharacterLength(above));
}

// Moves the caret to the beginning of a line of the document, counted from 1.
void mnuGotoLine(Workbench& workbench) {
  CaptureInput(workbench);
  const std::u16string answer = workbench.prompts().Input({.prompt = u"指定要定位的行："});
  if (answer.empty()) {
    return;
  }
  Editor& editor = workbench.editor();
  const std::optional<std::size_t> begin = BeginOfLine(editor.Text(), LeadingWholeNumber(answer));
  if (begin) {
    editor.SetSelection({{*begin}, 0});
  } else {
    workbench.prompts().Ask({.text = u"出错了！", .icon = Icon::kCritical, .systemModal = true});
  }
}

// Types the character that stands above the caret: the one in the same column of the line above, columns counted in
// characters. Nothing where there is none.
void mnuCopyAboveChar(Workbench& workbench) {
  Editor& editor = workbench.editor();
  const std::u16string text = editor.Text();
  const std::u16string_view above = CharacterAbove(text, editor.Selection().start);
  if (!above.empty()) {
    editor.ReplaceSelection(above);
  }
}

}  // namespace

void AddCaretCommands(CommandTable& table) {
  table.Add("mnuGotoLine", {&mnuGotoLine});
  table.Add("mnuCopyAboveChar", {&mnuCopyAboveChar});
}

}  // namespace scrivanta
