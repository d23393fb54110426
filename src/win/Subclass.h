// Hears a control's messages before the control does, for as long as it lives.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "win/WindowHost.h"

namespace scrivanta {

class Subclass {
 public:
  // Returns the answer to a message, or nothing to leave it to the control.
  using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

  Subclass(WindowHost& host, HWND control, Handler handler);
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;
  ~Subclass();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self);
  UINT_PTR Id() const noexcept { return reinterpret_cast<UINT_PTR>(this); }

  WindowHost& host_;
  HWND control_;
  Handler handler_;
};

}  // namespace scrivanta
