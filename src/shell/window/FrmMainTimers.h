// The timers of the main window.
#pragma once

#include <basetsd.h>

namespace scrivanta {

enum MainTimer : UINT_PTR { kTypeDate = 1, kTypeTime = 2, kSnapshot = 3, kCloseWhenIdle = 4 };

}  // namespace scrivanta
