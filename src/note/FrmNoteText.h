// The text of a note in its edit control: plain text, in one font, with the places of a search marked.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "note/Note.h"
#include "note/NoteSearch.h"
#include "win/RichEdit.h"
#include "win/Subclass.h"

namespace scrivanta {

class FrmNoteText {
 public:
  // A key that the listener takes is none of the control's.
  void Create(WindowHost& host, HWND parent, int controlId, std::function<bool(WPARAM)> onKey);
  // With the window.
  void Forget() { keys_.reset(); }
  HWND handle() const noexcept { return box_.handle(); }

  // Line breaks as CR LF.
  std::u16string Text() const;
  std::u16string SelectedText() const;
  void SetText(const std::u16string& text);
  void Append(const std::u16string& text);
  void ApplyLook(const NoteLook& look);

  // Positions of the control, a line break counting one: in what PlainText gives.
  std::u16string PlainText() const { return box_.Text(); }
  CHARRANGE Selection() const { return box_.Selection(); }
  void Select(const NotePlace& place);
  // All of them are marked as soon as they are seen. They outlive the marks.
  void Mark(std::span<const NotePlace> places);
  void MarkVisible();

 private:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  CHARRANGE VisibleRange() const;

  RichEdit box_;
  std::unique_ptr<Subclass> keys_;
  std::function<bool(WPARAM)> onKey_;
  std::span<const NotePlace> places_;
};

}  // namespace scrivanta
