// A short piece of scripts/soak.sh, always the same.
#include "window/driver/WindowTest.h"
#include "window/soak/Soak.h"

namespace scrivanta {
namespace {

class SoakTest : public WindowTest {};

TEST_F(SoakTest, AHundredStepsAtRandomLeaveTheDocumentRightAndNothingBehind) {
  app.Start();
  Soak soak(app, folder, 1);
  soak.Run(50);
  const SoakFigures before = MeasureProcess();
  soak.Run(50);
  const SoakFigures after = MeasureProcess();
  EXPECT_LE(after.handles, before.handles + 20) << before.Text() << " before, after: " << after.Text();
  EXPECT_LE(after.windows, before.windows + 2) << before.Text() << " before, after: " << after.Text();
  EXPECT_GE(after.roomForGdiObjects + 20, before.roomForGdiObjects)
      << before.Text() << " before, after: " << after.Text();
}

}  // namespace
}  // namespace scrivanta
