// A dialog made from a template of the resources, whose messages become member calls.
//
// A derived class overrides OnInit and OnCommand, and OnMessage where that is not enough. Enter presses the default
// button and Esc sends IDCANCEL, which closes the dialog unless OnCommand handles it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "win/HeldFailure.h"
#include "win/Subclass.h"
#include "win/WindowHost.h"

namespace scrivanta {

class Dialog {
 public:
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;
  virtual ~Dialog();

  // Shows the dialog until it is closed; the result is what Close was given. Both throw what OnInit throws; the dialog
  // is not open then.
  int ShowModal(HWND owner);
  // Shows the dialog beside its owner, or brings it to the front when it is open already.
  void ShowModeless(HWND owner);
  // The same in the corner of the screen, while the keys stay with whatever program has them.
  void ShowAside(HWND owner);
  // Ends a modal dialog with the result, destroys a modeless one.
  void Close(int result = IDCANCEL);

  // Null while the dialog is not open.
  HWND handle() const noexcept { return handle_; }
  bool IsOpen() const noexcept { return handle_ != nullptr; }

 protected:
  Dialog(WindowHost& host, int templateId) : host_(host), templateId_(templateId) {}

  // Called once the controls are there. The first control of the template gets the focus, unless FocusOn is called.
  virtual void OnInit() {}
  // A button was pressed, or a control notifies (BN_CLICKED, EN_CHANGE, CBN_SELCHANGE...). True when handled.
  virtual bool OnCommand(int controlId, int notification);
  // Any other message; nothing when it is not handled.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  // The dialog is going; its controls can still be read.
  virtual void OnClose() {}

  HWND Control(int controlId) const;
  std::u16string ControlText(int controlId) const;
  void SetControlText(int controlId, std::u16string_view text);
  bool IsChecked(int controlId) const;
  void SetChecked(int controlId, bool checked);
  void EnableControl(int controlId, bool enable);
  void FocusOn(int controlId);

  // The tip shown while the mouse rests on a control, in place of the one it had; none when it is empty.
  void SetToolTip(int controlId, std::u16string_view text);
  // Keys pressed in a control (in the edit box of a combo box) come here first; true swallows the key.
  using KeyHandler = std::function<bool(WPARAM key)>;
  void HookKeys(int controlId, KeyHandler handler);
  // The window is dragged by any part of its body that is no control.
  void DragByBody() noexcept { dragByBody_ = true; }
  void SetTopMost(bool topMost);
  // Centres the dialog over its owner and keeps it on the screen.
  void CentreOverOwner();
  // The upper left corner of the window on the desktop, in twips (1440 an inch).
  POINT CornerInTwips() const;
  // Moves the corner there, or as near as the whole window stays on a screen.
  void MoveToTwips(POINT corner);

  WindowHost& host() const noexcept { return host_; }

 private:
  void CreateModeless(HWND owner, bool takesFocus);
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR Open(HWND window) noexcept;
  void ShowOwnersIcon();
  void SetToolTipOf(HWND window, std::wstring tip);
  void Closed();

  WindowHost& host_;
  int templateId_;
  HWND handle_ = nullptr;
  HWND toolTips_ = nullptr;
  std::optional<int> focusOn_;
  bool modal_ = false;
  bool takesFocus_ = true;
  bool wasOpened_ = false;
  bool dragByBody_ = false;
  HeldFailure opening_;
  std::vector<std::unique_ptr<Subclass>> hooks_;
};

}  // namespace scrivanta
