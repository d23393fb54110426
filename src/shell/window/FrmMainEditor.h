// The rich text box of the main window as commands see it: the text with its selection and history, clipboard and
// formats.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "shell/history/DocumentHistory.h"
#include "shell/window/FrmMainControl.h"
#include "shell/workbench/EditBox.h"
#include "shell/workbench/Editor.h"
#include "win/RichEdit.h"

namespace scrivanta {

class FrmMainEditor final : public Editor, public EditBox {
 public:
  // Told of every change of the document, of every move of the selection, and when a change could not keep the formats
  // of what stays.
  struct Listener {
    std::function<void()> onChange;
    std::function<void()> onSelection;
    std::function<void()> onFormatsLost;
  };

  FrmMainEditor(Listener listener, FrmMainControl::Host host)
      : listener_(std::move(listener)), control_(box_, std::move(host)) {}

  void Create(HWND parent);
  // Another window after each change of the whole.
  HWND box() const noexcept { return box_.handle(); }
  void SetWordWrap(bool wraps) { box_.SetWordWrap(wraps); }
  void SetZoom(int percent) { box_.SetZoom(percent); }
  // What is read-only is changed by no command: those that would throw ExplainedError.
  void SetReadOnly(bool readOnly) { box_.SetReadOnly(readOnly); }
  bool IsReadOnly() const { return box_.IsReadOnly(); }
  // The control's notifications (EN_CHANGE, EN_SELCHANGE).
  void HandleChange();
  void HandleSelection();

  // A new document: nothing to undo, the caret at its beginning.
  void ShowDocument(std::u16string_view text);
  // False when the bytes are no rich text: the document stays as it was.
  bool ShowRichDocument(std::string_view rtf);
  // As SetText; `onUndo` is told whenever that is undone (true) or redone (false).
  void ReplaceText(std::u16string_view text, std::function<void(bool isUndone)> onUndo);
  // The same with a rich text. False when the bytes are none.
  bool ReplaceByRtf(std::string_view rtf);
  // As other programs read it: with pictures and whatever else the control does not hold, and without what stands for
  // them in the text.
  std::string DocumentRtf() const { return control_.DocumentRtf(); }
  std::u16string PlainText() const { return control_.parts().WithoutSigns(Text()); }
  // The text of a rich text, seen by nobody; nothing when the bytes are none.
  std::optional<std::u16string> TextOfRtf(std::string_view rtf) { return control_.TextOfRtf(rtf); }

  // For UndoCommand.
  DocumentHistory& history() noexcept { return history_; }
  const ControlView& view() const noexcept { return control_; }
  bool HasFormatting() const {
    return control_.hasFormatting() || (!control_.parts().empty() && control_.parts().HasSigns(Text()));
  }
  // Where the lines of the text begin, and the selection as the control has it.
  const LineBreakIndex& breaks() const noexcept { return history_.text().breaks(); }
  ControlRange ControlSelection() const { return control_.Selection(); }
  // The line of the caret and the one before it, and where the caret is in them.
  struct LinesAtCaret {
    std::u16string text;
    std::size_t caret = 0;
  };
  LinesAtCaret TwoLinesAtCaret() const;
  bool HasSelection() const { return !control_.Selection().empty(); }
  bool canUndo() const noexcept { return history_.canUndo(); }
  bool canRedo() const noexcept { return history_.canRedo(); }
  bool canPaste() const { return box_.Send(EM_CANPASTE) != FALSE; }
  void Undo();
  void Redo();

  // Something may be erased or typed over next: undoing brings it back with its formats.
  void KnowFormatsBeforeInput();

  // The format of the selection is kept, and given to another selection.
  void CopyFormat();
  void PasteFormat();

  // Selects the two halves of a pair of surrogates before the caret or behind it, for a key that erases a character.
  void SelectPairBeforeCaret();
  void SelectPairBehindCaret();

  std::u16string Text() const override { return history_.text().Text(); }
  std::u16string SelectedText() const override { return history_.text().Text(Selection()); }
  TextRange Selection() const override { return breaks().ToText(control_.Selection()); }
  void SetSelection(TextRange range) override { control_.Select(breaks().ToControl(range)); }
  std::optional<ScreenRect> SelectionOnScreen() const override;
  void MarkPart(std::optional<TextRange> part) override;
  std::optional<TextRange> MarkedPart() const override;
  std::size_t CountDisplayLines(std::u16string_view text) override;
  std::size_t CaretDisplayLine() const override;
  void SetText(std::u16string_view text) override;
  void ReplaceSelection(std::u16string_view text) override;
  std::string Rtf() const override { return box_.Rtf(); }
  std::string SelectedRtf() const override { return box_.SelectedRtf(); }
  bool SetRtf(std::string_view rtf) override;
  void SetRtf(const RtfByLines& rtf) override;
  bool ReplaceSelectionByRtf(std::string_view rtf) override;
  void SetColours(std::span<const TextRange> ranges, const TextColours& colours) override;
  ScrollPosition Scroll() const override;
  void SetScroll(ScrollPosition position) override;

  void Cut() override;
  void Copy() override;
  void Paste() override;
  void DeleteSelection() override;
  bool HasEffect(TextEffect effect) const override;
  void SetEffect(TextEffect effect, bool on) override;
  FontDescription Font() const override;
  void SetFont(const FontDescription& font) override;
  std::optional<FontDescription> AskForFont(const FontDescription& preset) override;

 private:
  struct StoredFormat {
    CHARFORMAT2W characters;
    PARAFORMAT2 paragraphs;
  };

  void Rearrange(ControlRange part, const std::u16string& before, const std::u16string& after,
                 bool (FrmMainControl::*rearrange)(const FrmMainControl::NewText&));
  bool ChangeFormats(ControlRange range, const std::function<void()>& change);
  std::optional<FormattedText> FormatsOf(ControlRange range) const;
  void RequireWritable() const;
  void NoteFormats(bool areKept) const;
  void SelectPairAt(std::size_t start);
  bool ReplaceSelectionQuietly(std::string_view rtf);
  // What `load` does to the document, formatting and all, as one step of undo; unless it returns false. It is given the
  // rich text of what it changes.
  template <typename Load>
  bool Rebuild(Load load, std::function<void(bool isUndone)> onUndo = nullptr);

  Listener listener_;
  RichEdit box_;
  FrmMainControl control_;
  DocumentHistory history_;
  std::optional<StoredFormat> storedFormat_;
};

}  // namespace scrivanta
