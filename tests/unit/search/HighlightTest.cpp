#include <gtest/gtest.h>

#include "rtf/RtfText.h"
#include "search/EditSelection.h"
#include "search/Highlight.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;

class HighlightTest : public ::testing::Test {
 protected:
  HighlightTest() {
    workbench_.editor().textOfRtf = [](std::string_view rtf) { return RtfText(rtf).text(); };
  }

  ScriptedWorkbench workbench_;
};

TEST_F(HighlightTest, ShowsWordsInRedAndBoldAndChangesNoCharacter) {
  const std::u16string text = u"aB {\\中}\r\n\r\n\U0001F600ab\r\n";
  workbench_.editor().Open(text, {{3}, 4});
  workbench_.editor().scroll = {.x = 5, .y = 7};
  HighlightInEditor(workbench_, u"ab||\U0001F600|中}");
  const std::string rtf = workbench_.WorkFile("HaveRtf.rtf");
  EXPECT_EQ(rtf, workbench_.editor().rtf);
  EXPECT_TRUE(
      rtf.starts_with("{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052\r\n"
                      "{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}\r\n"));
  EXPECT_TRUE(
      rtf.ends_with("\\fs21 \r\n"
                    "\\cf2\\b aB\\cf1\\b0  \\{\\\\\\cf2\\b \\'d6\\'d0\\}\\cf1\\b0 \\par \r\n"
                    "\\par \r\n"
                    "\\cf2\\b \\u-10179?\\u-8704?ab\\cf1\\b0 \\par \r\n"
                    "\\par \r\n}"))
      << rtf;
  EXPECT_EQ(workbench_.editor().Text(), text);
  EXPECT_EQ(workbench_.editor().Selection(), (TextRange{{3}, 4}));
  EXPECT_EQ(workbench_.editor().scroll.y, 7);
}

TEST_F(HighlightTest, AsksForWordsAndTakesNoneForNo) {
  workbench_.editor().Open(u"one two", {{4}, 3});
  workbench_.prompts().Will(std::u16string());
  HighlightInEditor(workbench_, u"");
  ASSERT_EQ(workbench_.prompts().inputs.size(), 1U);
  EXPECT_EQ(workbench_.prompts().inputs[0].title, u"高亮显示字符：");
  EXPECT_EQ(workbench_.prompts().inputs[0].preset, u"two");
  EXPECT_EQ(workbench_.editor().rtf, "");
  EXPECT_EQ(workbench_.editor().changes, 0);
}

TEST_F(HighlightTest, SaysWhenNoWordOccurs) {
  workbench_.editor().Open(u"one two");
  HighlightInEditor(workbench_, u"three|four");
  EXPECT_EQ(workbench_.prompts().messages.back().text, u"未找到结果");
  EXPECT_EQ(workbench_.editor().changes, 0);
}

TEST(EditSelection, CountsCharactersWhateverTheirBytes) {
  ScriptedWorkbench workbench;
  testing::ScriptedEditor& editor = workbench.editor();
  editor.Open(u"中文ab\r\n字");
  EditSetSelection(editor, 2, 2);
  EXPECT_EQ(editor.SelectedText(), u"ab");
  EXPECT_EQ(EditGetSelStart(editor), 2U);
  EXPECT_EQ(EditGetSelLength(editor), 2U);
  EditSetSelection(editor, 6, 0);
  EXPECT_EQ(EditGetSelLength(editor), 0U);
  EditSetSelection(editor, 0, -1);
  EXPECT_EQ(editor.SelectedText(), editor.Text());
}

}  // namespace
}  // namespace scrivanta
