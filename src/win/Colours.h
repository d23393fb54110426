// The colours that the program's windows are shown in: the system's, or dark ones made of them.
//
// Controls that draw themselves as a whole are drawn in the system's colours, into a picture in memory, and the picture
// is shown dark: nothing in them knows of it, no format of a text either. Those that draw a part whenever they like are
// given dark colours to draw with.
#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "win/Canvas.h"
#include "win/Handles.h"

namespace scrivanta {

class Colours {
 public:
  Colours() = default;
  Colours(const Colours&) = delete;
  Colours& operator=(const Colours&) = delete;

  // Those that a window was dressed with; null for windows that are not the program's own.
  static Colours* OfWindow(HWND window);

  bool isDark() const noexcept { return isDark_; }
  // Every window there is follows.
  void SetDark(bool isDark);

  // What a colour of the system (COLOR_BTNFACE) is shown as.
  COLORREF Of(int systemColour) const;
  HBRUSH BrushOf(int systemColour);

  // Takes a window of the program in, with its controls, those that come later too, until it goes. When it becomes
  // dark, its controls are drawn here before others hear of it: they have to begin to listen again.
  void Dress(HWND window);
  void Forget(HWND window) noexcept;
  // The window has a menu bar now.
  void DressMenuBar(HWND window);

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                          DWORD_PTR self);
  static LRESULT CALLBACK ControlProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                           DWORD_PTR self);
  LRESULT AnswerDark(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerDarkControl(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id);
  LRESULT Fill(HDC context, int ground, int text);
  void Recolour(HWND window);
  void RecolourControl(HWND control);
  bool Paint(HWND control);
  void PaintOver(HWND control, HRGN region, const RECT& part);
  void PaintFrame(HWND control);
  void PaintEdge(HWND control);
  bool IsUntouched(const RECT& part);
  void Darken(const RECT& part);

  bool isDark_ = false;
  bool isPrinting_ = false;  // a control draws itself into the picture, on the ground that its window has in light
  Canvas canvas_;
  std::vector<HWND> windows_;
  std::map<int, OwnedBrush> brushes_;  // of the dark colours that were asked for
};

}  // namespace scrivanta
