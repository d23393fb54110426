// The status bar tells where the caret stands and how the document is kept, and changes it when it is clicked.
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class StatusBarTest : public WindowTest {};

TEST_F(StatusBarTest, PanelsFollowTheDocumentAndChangeItsFormat) {
  const auto file = folder.Write(u"名单.txt", Gbk(u"甲乙\r\n丙\r\n"));
  app.Start();
  app.Open(file);
  app.ExpectPanel(StatusPanel::kPlace, u"行 1，列 1");
  app.ExpectPanel(StatusPanel::kEncoding, u"GBK");
  app.ExpectPanel(StatusPanel::kLineEnds, u"CR LF");
  app.ExpectPanel(StatusPanel::kState, u"");

  app.Press("Ctrl+End");
  app.ExpectPanel(StatusPanel::kPlace, u"行 3，列 1");
  app.Type(u"丁");
  app.ExpectPanel(StatusPanel::kPlace, u"行 3，列 2");
  app.ExpectPanel(StatusPanel::kState, u"已修改");
  app.Press("Ctrl+A");
  app.ExpectPanel(StatusPanel::kSelection, u"选中 8 字，3 行");

  app.OpenPanelMenu(StatusPanel::kLineEnds);
  app.ChooseInPopup(u'2');
  app.ExpectPanel(StatusPanel::kLineEnds, u"LF");
  app.OpenPanelMenu(StatusPanel::kEncoding);
  app.ChooseInPopup(u'C');
  app.ExpectPanel(StatusPanel::kEncoding, u"UTF-8");
  app.ExpectPanel(StatusPanel::kState, u"");
  EXPECT_EQ(ReadBytes(file), Utf8(u"甲乙\n丙\n丁"));

  app.ClickPanel(StatusPanel::kPlace);
  app.AnswerInput({.prompt = u"指定要定位的行："}, u"2");
  app.ExpectPanel(StatusPanel::kPlace, u"行 2，列 1");
  app.ExpectPanel(StatusPanel::kSelection, u"");
}

}  // namespace
}  // namespace scrivanta
