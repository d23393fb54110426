#include "shell/window/ShellCommands.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "shell/document/DocumentFile.h"
#include "shell/window/Capitals.h"
#include "shell/workbench/EditBox.h"
#include "shell/workbench/FontLine.h"
#include "shell/workbench/NewInstance.h"

namespace scrivanta {

namespace {

constexpr char16_t kHelpDocument[] = u"Scrivanta.rtf";

bool HasSelection(const WorkbenchState& state) {
  return state.hasSelection;
}

void mnuNew(Workbench& workbench, MainWindow& window) {
  window.KeepPlacement();
  StartInstance(workbench, {});
}

void ToggleEffect(EditBox& box, TextEffect effect) {
  box.SetEffect(effect, !box.HasEffect(effect));
}

void mnuAllcaps(Workbench& workbench) {
  Editor& editor = workbench.editor();
  const TextRange selection = editor.Selection();
  const std::u16string text = editor.SelectedText();
  const std::u16string capitals = ToCapitals(text);
  if (capitals != text) {
    editor.ReplaceSelection(capitals);
    editor.SetSelection(selection);
  }
}

void mnuFont(Workbench& workbench, EditBox& box) {
  const FontDescription font = box.Font();
  const auto choose = [&](const std::u16string& typed) {
    const std::optional<FontDescription> chosen = box.AskForFont(ApplyFontLine(font, typed));
    return chosen ? FontToLine(*chosen) : typed;
  };
  const std::u16string line = workbench.prompts().Input({.prompt = u"字体设置：",
                                                         .preset = FontToLine(font),
                                                         .hasFields = true,
                                                         .assistant = u"选择(&C)...",
                                                         .assist = choose});
  if (!line.empty()) {
    box.SetFont(ApplyFontLine(font, line));
  }
}

void mnuSelectAll(Workbench& workbench) {
  Editor& editor = workbench.editor();
  editor.SetSelection({{0}, editor.Text().size()});
}

// The caret is the end of the selection that was moved last; without knowing which, its end.
void mnuSelEnd(Workbench& workbench, TextPos begin) {
  Editor& editor = workbench.editor();
  const TextPos caret = editor.Selection().end();
  editor.SetSelection({std::min(begin, caret), std::max(begin, caret).value - std::min(begin, caret).value});
}

void mnuHowToUse(Workbench& workbench) {
  workbench.desktop().OpenWithDefaultProgram(workbench.folders().program / kHelpDocument);
}

void AddDocumentCommands(CommandTable& table, MainWindow& window) {
  table.Add("mnuNew", {[&window](Workbench& workbench) { mnuNew(workbench, window); }});
  table.Add("mnuOpen", {[&window](Workbench&) { window.documentFile().OpenAsked(); }});
  table.Add("mnuSave", {[&window](Workbench&) { window.documentFile().Save(); }});
  table.Add("mnuSaveAs", {[&window](Workbench&) { window.documentFile().SaveAs(); }});
  table.Add("mnuExit", {[&window](Workbench&) { window.RequestClose(); }});
}

void AddFormatMenus(CommandTable& table, MainWindow& window) {
  table.Add("mnuEncoding", {[&window](Workbench&) { window.OpenEncodingMenu(); }});
  table.Add("mnuLineEnds", {[&window](Workbench&) { window.OpenLineEndsMenu(); }});
}

void AddUndoCommands(CommandTable& table, MainWindow& window) {
  table.Add("mnuUndo",
            {[&window](Workbench&) { window.Undo(); }, [](const WorkbenchState& state) { return state.canUndo; }});
  table.Add("mnuRedo",
            {[&window](Workbench&) { window.Redo(); }, [](const WorkbenchState& state) { return state.canRedo; }});
}

void AddClipboardCommands(CommandTable& table, EditBox& box) {
  table.Add("mnuCut", {[&box](Workbench&) { box.Cut(); }, &HasSelection});
  table.Add("mnuCopy", {[&box](Workbench&) { box.Copy(); }, &HasSelection});
  table.Add("mnuPaste",
            {[&box](Workbench&) { box.Paste(); }, [](const WorkbenchState& state) { return state.canPaste; }});
  table.Add("mnudelete", {[&box](Workbench&) { box.DeleteSelection(); }, &HasSelection});
}

void AddFormatCommands(CommandTable& table, EditBox& box) {
  table.Add("mnuBold", {[&box](Workbench&) { ToggleEffect(box, TextEffect::kBold); }});
  table.Add("mnuItalic", {[&box](Workbench&) { ToggleEffect(box, TextEffect::kItalic); }});
  table.Add("mnuUnderline", {[&box](Workbench&) { ToggleEffect(box, TextEffect::kUnderline); }});
  table.Add("mnuAllcaps", {&mnuAllcaps, &HasSelection});
  table.Add("mnuFont", {[&box](Workbench& workbench) { mnuFont(workbench, box); }});
}

void AddSelectionCommands(CommandTable& table) {
  const auto mark = std::make_shared<TextPos>();
  table.Add("mnuSelBegin", {[mark](Workbench& workbench) { *mark = workbench.editor().Selection().start; }});
  table.Add("mnuSelEnd", {[mark](Workbench& workbench) { mnuSelEnd(workbench, *mark); }});
  table.Add("mnuSelectAll", {&mnuSelectAll});
}

}  // namespace

void RegisterShellCommands(CommandTable& table, MainWindow& window) {
  AddDocumentCommands(table, window);
  AddFormatMenus(table, window);
  AddUndoCommands(table, window);
  AddClipboardCommands(table, window.editBox());
  AddFormatCommands(table, window.editBox());
  AddSelectionCommands(table);
  table.Add("mnuCalculator", {[](Workbench& workbench) { workbench.desktop().RunSystemProgram(u"CALC.EXE", u""); }});
  table.Add("mnuHowToUse", {&mnuHowToUse});
}

}  // namespace scrivanta
