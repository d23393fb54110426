#include "window/driver/WindowTest.h"

#include "window/driver/LeftBehind.h"
#include "window/driver/StoredSettings.h"

namespace scrivanta {

WindowTest::WindowTest() {
  ForgetSettings();
  ForgetSnapshots();
}

}  // namespace scrivanta
