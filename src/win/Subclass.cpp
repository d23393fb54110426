#include "win/Subclass.h"

#include <commctrl.h>

#include "text/win/PlatformError.h"

namespace scrivanta {

Subclass::Subclass(WindowHost& host, HWND control, Handler handler)
    : host_(host), control_(control), handler_(std::move(handler)) {
  if (SetWindowSubclass(control_, &Procedure, Id(), reinterpret_cast<DWORD_PTR>(this)) == FALSE) {
    ThrowLastError("SetWindowSubclass");
  }
}

Subclass::~Subclass() {
  RemoveWindowSubclass(control_, &Procedure, Id());
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR selfPointer) {
  auto* const self = reinterpret_cast<Subclass*>(selfPointer);
  try {
    if (const std::optional<LRESULT> answer = self->handler_(message, wParam, lParam)) {
      return *answer;
    }
  } catch (...) {
    self->host_.onError(GetAncestor(window, GA_ROOT), std::current_exception());
    return 0;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace scrivanta
