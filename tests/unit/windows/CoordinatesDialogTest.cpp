#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "text/ExplainedError.h"
#include "windows/WindowsCommands.h"

namespace scrivanta::testing {
namespace {

class OneWindow final : public WindowPlaces {
 public:
  std::vector<std::u16string> Captions() const override { return {u"记事本"}; }
  std::optional<ScreenPoint> ClientCorner(std::u16string_view caption) const override {
    return caption == u"记事本" ? std::optional(ScreenPoint{100, -200}) : std::nullopt;
  }
};

// Presses the button with these choices.
class PressConvert final : public WindowsDialogs, private CoordinatesView {
 public:
  void ShowCoordinates(CoordinatesDialog& dialog) override { dialog.Convert(*this); }
  void ShowSendInput(SendInputDialog&) override {}
  void ShowWindows(WindowsDialog&) override {}

  CoordinatesForm form;
  bool closed = false;

 private:
  CoordinatesForm Form() const override { return form; }
  void CloseView() override { closed = true; }
};

TEST(Coordinates, OfTheSelectionCountFromAWindow) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"MoveTo 1, 1\r\nMoveTo 101, 1\r\nMoveTo x, 2", {{13}, 28});
  PressConvert window;
  window.form.caption = u"记事本";
  mnuZuoBiaoToXiangDuiZuoBiao(workbench, window, OneWindow());
  EXPECT_TRUE(workbench.editor().Text().starts_with(u"MoveTo 1, 1\r\nChuangKou = "));
  EXPECT_TRUE(workbench.editor().Text().ends_with(u"\r\nMoveTo ChuangKouX + 1, ChuangKouY + 201\r\nMoveTo x, 2"));
  EXPECT_TRUE(window.closed);
  EXPECT_EQ(workbench.status, u"已转换1个坐标");
  EXPECT_EQ(workbench.prompts().messages.at(0).text, u"以下1处含有变量、表达式或区域，没有改动：\n第2行：MoveTo x, 2");
  EXPECT_TRUE(workbench.WorkFile("XiangDuiZuoBiao.txt").starts_with("ChuangKou"));
}

TEST(Coordinates, StayWithoutAUsableOrigin) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"1,2");
  PressConvert window;
  const CoordinatesForm forms[] = {{.dialect = {}, .caption = u"画图"},
                                   {.dialect = {}, .caption = u""},
                                   {.dialect = {}, .base = CoordinateBase::kPoint, .x = u"1"}};
  for (const CoordinatesForm& form : forms) {
    window.form = form;
    EXPECT_THROW(mnuZuoBiaoToXiangDuiZuoBiao(workbench, window, OneWindow()), ExplainedError);
    EXPECT_FALSE(window.closed);
    EXPECT_EQ(workbench.editor().Text(), u"1,2");
  }
}

}  // namespace
}  // namespace scrivanta::testing
