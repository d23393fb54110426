// The edit box as commands see it: one text, one selection. FrmMain implements it on the real control, tests on a
// string.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "rtf/RtfByLines.h"
#include "shell/workbench/ScreenRect.h"
#include "text/Interface.h"
#include "text/TextPos.h"

namespace scrivanta {

// Of characters, as 0x00BBGGRR; none: the box's own.
struct TextColours {
  std::optional<std::uint32_t> text = {};
  std::optional<std::uint32_t> background = {};

  friend bool operator==(const TextColours&, const TextColours&) = default;
};

// What is scrolled to the upper left corner, in pixels of the whole document.
struct ScrollPosition {
  long x = 0;
  long y = 0;
};

class Editor : public Interface {
 public:
  // The document text, lines separated by CR LF.
  virtual std::u16string Text() const = 0;
  virtual std::u16string SelectedText() const = 0;
  virtual TextRange Selection() const = 0;
  // Scrolls the caret into view. Positions beyond the end mean the end.
  virtual void SetSelection(TextRange range) = 0;

  // Where the selection is seen; nothing when it is not.
  virtual std::optional<ScreenRect> SelectionOnScreen() const = 0;

  // A part of the text that stays marked, unseen, whatever is edited before it, in it and behind it. It is gone when
  // more than all of it is removed at once, and when another document is shown.
  virtual void MarkPart(std::optional<TextRange> part) = 0;
  virtual std::optional<TextRange> MarkedPart() const = 0;

  // Lines as they are displayed: with automatic wrapping a long line of text is several of them.
  // How many the text would take in a box of this one's geometry.
  virtual std::size_t CountDisplayLines(std::u16string_view text) = 0;
  // The one that holds the caret, from 1.
  virtual std::size_t CaretDisplayLine() const = 0;

  // Both change the document: they mark it as changed and are one step of undo. A lone CR or LF in the text becomes a
  // line break, as everything shown does. What is in the old text and in the new one (TextPieces) keeps its formats.
  // After the first the line at the top is still there and the caret still in its line, wherever the lines have gone;
  // after the second the caret stands behind the text.
  virtual void SetText(std::u16string_view text) = 0;
  virtual void ReplaceSelection(std::u16string_view text) = 0;

  // The document and the selection with their formatting, as the bytes of a rich text. What an edit box does not hold,
  // as pictures, is a character in it, as it is in the text; put back into the document it is what it was.
  virtual std::string Rtf() const = 0;
  virtual std::string SelectedRtf() const = 0;
  // Change the document as the two above do. What is no rich text is refused: false, and the document is as it was.
  virtual bool SetRtf(std::string_view rtf) = 0;
  virtual void SetRtf(const RtfByLines& rtf) = 0;
  virtual bool ReplaceSelectionByRtf(std::string_view rtf) = 0;

  // Colours all of the ranges at once, for the eye only: no change of the document. The selection stays.
  virtual void SetColours(std::span<const TextRange> ranges, const TextColours& colours) = 0;
  virtual ScrollPosition Scroll() const = 0;
  virtual void SetScroll(ScrollPosition position) = 0;
};

}  // namespace scrivanta
