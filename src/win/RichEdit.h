// The rich edit control. Its text has one carriage return for a line break; positions count UTF-16 code units
// from 0, a line break once.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <string>
#include <string_view>

#include "rtf/RtfByLines.h"
#include "text/Progress.h"
#include "win/Handles.h"

struct ITextDocument;

namespace scrivanta {

// The library that holds the control; to be kept as long as a control lives.
OwnedLibrary LoadRichEditLibrary();

// How high text of the default format is in such a control, as it is zoomed, in pixels.
int TextHeightIn(HWND box);

// Refers to a control, which its parent destroys.
class RichEdit {
 public:
  RichEdit() = default;

  // Throws std::system_error.
  void Create(HWND parent, int controlId, DWORD style);
  // Without text and not shown, but in place, size, font and wrapping like the other one. It sends no notifications.
  void CreateLike(const RichEdit& other, int controlId);
  HWND handle() const noexcept { return handle_; }

  // In UTF-16 code units, a line break counting one.
  std::size_t Length() const;
  std::u16string Text() const;
  std::u16string Text(CHARRANGE range) const;

  // What follows fills a control that is empty, in time linear in the length, and report to the progress, which may
  // handle the messages of other windows. When it throws, the control holds a part; std::system_error is thrown for
  // what the control does not take, or cannot give. Decoded text with any line ends, in the default character format. A
  // lone CR before a CR LF would come out as a blank.
  void LoadText(std::u16string_view text, Progress& progress);
  // The bytes of a rich text. False when they are none: the control may then hold anything.
  bool LoadRtf(std::string_view bytes, Progress& progress);
  // The same for a rich text that can be loaded some lines at a time, into a control that is empty: between them it can
  // be interrupted, where LoadRtf lays out all of the text at its end.
  void LoadRtfByLines(const RtfByLines& rtf, Progress& progress);
  std::string Rtf() const;  // throws ExplainedError when the control does not give all of it, as the next
  std::string SelectedRtf() const;
  // Of another part; the selection comes back, and nobody is notified.
  std::string RtfOf(CHARRANGE range) const;
  // False when the bytes are no rich text, or break off: a part of them may stand in the place of the selection.
  bool ReplaceSelectionByRtf(std::string_view bytes);

  CHARRANGE Selection() const;
  // Does not scroll.
  void Select(CHARRANGE range);
  void ScrollToCaret();
  // In time that grows with the lines of the whole: for small parts only.
  void ReplaceSelection(std::u16string_view text);
  // What is to be scrolled to the upper left corner, in pixels of the whole text.
  POINT ScrollPosition() const;
  void SetScrollPosition(POINT position);
  // The first unit of the topmost line that is seen, and where a unit stands, in pixels of the window.
  LONG FirstVisible() const;
  POINT PlaceOf(LONG position) const;
  // Of the default format, as it is zoomed, in pixels.
  int TextHeight() const { return TextHeightIn(handle_); }

  CHARFORMAT2W SelectionFormat() const;
  // The same of another part.
  CHARFORMAT2W FormatOf(CHARRANGE range) const;
  void SetSelectionFormat(const CHARFORMAT2W& format);
  PARAFORMAT2 SelectionParagraph() const;
  void SetSelectionParagraph(const PARAFORMAT2& format);
  CHARFORMAT2W DefaultFormat() const;
  void SetDefaultFormat(const CHARFORMAT2W& format);
  // The format of all there is, and of what comes.
  void SetFormatOfAll(const CHARFORMAT2W& format);

  void SetWordWrap(bool wraps);
  void SetZoom(int percent);
  void SetReadOnly(bool readOnly);
  bool IsReadOnly() const;
  // Lines as shown, wrapped lines counted singly.
  std::size_t LineCount() const;
  std::size_t LineOf(LONG position) const;
  // Where the line of a position begins.
  LONG LineStart(LONG position) const;

  DWORD EventMask() const;
  void SetEventMask(DWORD mask);
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

 private:
  HWND handle_ = nullptr;
  DWORD style_ = 0;  // as it was created, for the control changes the window's own
  bool wraps_ = true;
};

// While it lives the control draws nothing and sends no notifications.
class QuietRichEdit {
 public:
  explicit QuietRichEdit(RichEdit& box);
  QuietRichEdit(const QuietRichEdit&) = delete;
  QuietRichEdit& operator=(const QuietRichEdit&) = delete;
  ~QuietRichEdit();

 private:
  RichEdit& box_;
  DWORD eventMask_;
};

// While it lives, what changes becomes no step of the control's own undo.
class RichEditUndoPause {
 public:
  explicit RichEditUndoPause(const RichEdit& box);
  RichEditUndoPause(const RichEditUndoPause&) = delete;
  RichEditUndoPause& operator=(const RichEditUndoPause&) = delete;
  ~RichEditUndoPause();

 private:
  void Tell(long what) const noexcept;

  ITextDocument* document_ = nullptr;
};

}  // namespace scrivanta
