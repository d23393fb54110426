// The window among others: its place, its tray icon, files dropped on it.
#include <windows.h>

#include <string>
#include <vector>

#include "window/driver/StoredSettings.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class DesktopTest : public WindowTest {
 protected:
  RECT Bounds() const {
    RECT bounds{};
    GetWindowRect(app.MainWindow(), &bounds);
    return bounds;
  }
};

// At 96 dots per inch a pixel is 15 twips.
constexpr LONG kDefaultWidth = 11865 / 15;
constexpr LONG kDefaultHeight = 8760 / 15;

TEST_F(DesktopTest, PlacementsThatMakeNoSenseFallBackToTheDefaults) {
  struct Placement {
    const char* name;
    std::u16string left, top, width, height;
  };
  const std::vector<Placement> placements = {
      {"none stored", u"", u"", u"", u""},
      {"off every screen", u"300000", u"300000", u"11865", u"8760"},
      {"far too large", u"1e300", u"-1e300", u"1e300", u"nan"},
  };
  for (const Placement& placement : placements) {
    SCOPED_TRACE(placement.name);
    StoreSetting(u"MainLeft", placement.left);
    StoreSetting(u"MainTop", placement.top);
    StoreSetting(u"MainWidth", placement.width);
    StoreSetting(u"MainHeight", placement.height);
    app.Start();
    const RECT bounds = Bounds();
    EXPECT_EQ(bounds.left, 0);
    EXPECT_EQ(bounds.top, 0);
    EXPECT_EQ(bounds.right - bounds.left, kDefaultWidth);
    EXPECT_EQ(bounds.bottom - bounds.top, kDefaultHeight);
    app.Close();
    EXPECT_EQ(app.WaitForEnd(), 0);
  }
}

TEST_F(DesktopTest, AMaximisedWindowComesBackSoAndKnowsItsPlace) {
  app.Start();
  SetWindowPos(app.MainWindow(), nullptr, 60, 45, 600, 450, SWP_NOZORDER);
  const RECT normal = Bounds();
  ShowWindow(app.MainWindow(), SW_MAXIMIZE);
  const RECT maximised = Bounds();
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);

  app.Start();
  EXPECT_NE(IsZoomed(app.MainWindow()), FALSE);
  const RECT again = Bounds();
  EXPECT_NE(EqualRect(&again, &maximised), FALSE);
  ShowWindow(app.MainWindow(), SW_RESTORE);
  const RECT restored = Bounds();
  EXPECT_NE(EqualRect(&restored, &normal), FALSE);
  app.Close();
  EXPECT_EQ(app.WaitForEnd(), 0);

  app.Start();
  EXPECT_EQ(IsZoomed(app.MainWindow()), FALSE);
}

TEST_F(DesktopTest, MinimisedWindowIsAnIconOfTheTray) {
  app.Start();
  EXPECT_FALSE(app.HasTrayIcon());
  SetWindowPos(app.MainWindow(), nullptr, 60, 45, 600, 450, SWP_NOZORDER);
  const RECT before = Bounds();

  app.Minimise();
  EXPECT_TRUE(app.HasTrayIcon());
  EXPECT_EQ(IsWindowVisible(app.MainWindow()), FALSE);
  app.ClickTrayIcon();
  EXPECT_FALSE(app.HasTrayIcon());
  EXPECT_NE(IsWindowVisible(app.MainWindow()), FALSE);
  const RECT after = Bounds();
  EXPECT_NE(EqualRect(&before, &after), FALSE);
  app.Type(u"字");
  app.ExpectText(u"字");

  // Closed while minimised: no icon stays, and the place that is kept is the last one on the screen.
  StoreSetting(u"MainLeft", u"450");
  app.Minimise();
  app.Close();
  app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion}).Answer(Answer::kNo);
  EXPECT_EQ(app.WaitForEnd(), 0);
  EXPECT_EQ(StoredSetting(u"MainLeft"), u"450");
}

TEST_F(DesktopTest, OneDroppedFileIsOpenedAndTwoAreNot) {
  const auto first = folder.Write(u"第一.txt", Gbk(u"一"));
  const auto second = folder.Write(u"第二.txt", Gbk(u"二"));
  app.Start();
  app.Drop({first, second});
  app.ExpectBox({.text = u"每次只能打开一个文件！", .icon = Icon::kWarning}).Answer(Answer::kOk);
  app.ExpectText(u"");

  app.Drop({first});
  app.ExpectText(u"一");
  app.ExpectCaption(u"Scrivanta " + first.u16string());

  app.Type(u"改");
  app.Drop({second});
  app.ExpectBox({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion}).Answer(Answer::kYes);
  app.ExpectText(u"二");
  EXPECT_EQ(ReadBytes(first), Gbk(u"改一"));
}

}  // namespace
}  // namespace scrivanta
