// What all windows of one run of the program share.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>

#include "win/MessageLoop.h"

namespace scrivanta {

class Colours;

struct WindowHost {
  HINSTANCE instance = nullptr;
  MessageLoop& loop;
  Colours& colours;
  // Told of an exception that reached a window's procedure, beyond which it must not go; the window is the owner for
  // a message box. It does not throw.
  std::function<void(HWND, std::exception_ptr)> onError;
};

}  // namespace scrivanta
