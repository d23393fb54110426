#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class MainWindowTest : public WindowTest {};

TEST_F(MainWindowTest, StartsAndEnds) {
  app.Start();
  app.ExpectStatus(u"状态");
  app.Type(u"汉字Ab");
  app.ExpectText(u"汉字Ab");
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);
}

}  // namespace
}  // namespace scrivanta
