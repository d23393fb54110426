#include "window/driver/FirstRun.h"

#include "window/driver/LeftBehind.h"
#include "window/driver/StoredSettings.h"

namespace scrivanta {

void ForgetEarlierRuns() {
  ForgetSettings();
  ForgetSnapshots();
  ForgetNotes();
}

}  // namespace scrivanta
