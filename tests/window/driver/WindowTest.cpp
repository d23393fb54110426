#include "window/driver/WindowTest.h"

#include "window/driver/StoredSettings.h"

namespace scrivanta {

WindowTest::WindowTest() {
  ForgetSettings();
}

}  // namespace scrivanta
