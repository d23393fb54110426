// The keys of the keyboard, as they were when the message came that is being handled.
#pragma once

#include <windows.h>

namespace scrivanta {

inline bool IsKeyDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace scrivanta
