#include "shell/MenuTree.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

TEST_F(WindowTest, StartsAndEnds) {
  app.Start();
  app.ExpectStatus(u"状态");
  app.Type(u"汉字Ab");
  app.ExpectText(u"汉字Ab");
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);
}

}  // namespace
}  // namespace scrivanta
