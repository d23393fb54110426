#include <gtest/gtest.h>

#include "shell/workbench/ResultFiles.h"
#include "support/ScriptedWorkbench.h"

namespace scrivanta::testing {
namespace {

TEST(ResultFiles, CaptureTheSelectionOrTheWholeText) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"一\r\n二");
  EXPECT_EQ(CaptureInput(workbench).text, u"一\r\n二\r\n");
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "\xD2\xBB\r\n\xB6\xFE\r\n");
  EXPECT_EQ(CaptureInput(workbench, u"Other.txt", WholeTextEnd::kAsItStands).bytes, "\xD2\xBB\r\n\xB6\xFE");
  EXPECT_EQ(workbench.WorkFile("Other.txt"), "\xD2\xBB\r\n\xB6\xFE");
  workbench.editor().SetSelection({{3}, 1});
  EXPECT_EQ(CaptureInput(workbench).text, u"二");
}

TEST(ResultFiles, PutBackEndsWhereTheInputEnded) {
  struct Case {
    std::u16string document;
    TextRange selection;
    std::string result;
    std::u16string shown;
  };
  const Case cases[] = {
      {u"old", {}, "", u""},
      {u"old", {}, "\r\n", u""},
      {u"old", {}, "a\r\n", u"a"},
      {u"old\r\n", {}, "a\r\n\r\n", u"a\r\n"},
      {u"old", {}, "a", u"a"},
      {u"old\r\nnext", {{0}, 3}, "a\r\n", u"a\r\nnext"},
      {u"old\r\nnext", {{0}, 5}, "a\r\n", u"a\r\nnext"},
      {u"old\r\nnext", {{0}, 5}, "", u"next"},
  };
  for (const Case& c : cases) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(c.document, c.selection);
    ResultFile result(workbench, u"Result.txt");
    result.Write(c.result);
    PutResultBack(workbench, CaptureInput(workbench), result);
    EXPECT_EQ(workbench.editor().Text(), c.shown);
    EXPECT_EQ(workbench.WorkFile("Result.txt"), c.result);
  }
}

TEST(ResultFiles, AnAddedLineBreakIsNoneOfTheDocuments) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"a\r\nb\r\n");
  EXPECT_EQ(CaptureInput(workbench).OwnText(), u"a\r\nb\r\n");
  workbench.editor().SetSelection({{0}, 3});
  CapturedInput input = CaptureInput(workbench);
  AddLineBreak(input);
  EXPECT_EQ(workbench.WorkFile("FileAutoSave.txt"), "a\r\n\r\n");
  EXPECT_EQ(input.OwnText(), u"a\r\n");
  EXPECT_TRUE(input.IsSelectionOfWholeLines());
  PutTextBack(workbench, input, u"Result.txt", u"1\r\n");
  EXPECT_EQ(workbench.editor().Text(), u"1\r\nb\r\n");
}

TEST(ResultFiles, PutBackWhereItWasCaptured) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"one two", {{4}, 3});
  const CapturedInput input = CaptureInput(workbench);
  workbench.editor().SetSelection({{0}, 1});
  ResultFile result(workbench, u"Result.txt");
  result.Write("two\r\n2\r\n");
  PutResultBack(workbench, input, result);
  EXPECT_EQ(workbench.editor().Text(), u"one two\r\n2");
  // It is selected, for the next command.
  EXPECT_EQ(workbench.editor().SelectedText(), u"two\r\n2");
}

// What is no text in the document's own encoding may be half a character in that of the files.
TEST(ResultFiles, BringBackWhatIsNoText) {
  const std::u16string texts[] = {
      u"Ren\xDCE9tte,caf\xDCE9|x",   // a byte of another encoding, and letters that would complete it
      u"\xDC81\x30\xDC84\x36",       // as a code of four bytes
      u"\xD83D|\xDE00\xDC81\xDC81",  // halves of pairs, and two bytes that would be one character
      u"a\xDCE9|\U0010F869 \U0010FFFF",
  };
  for (const std::u16string& text : texts) {
    SCOPED_TRACE(::testing::PrintToString(text));
    ScriptedWorkbench workbench;
    workbench.editor().Open(text);
    const CapturedInput input = CaptureInput(workbench);
    ResultFile result(workbench, u"Result.txt");
    // Fields end at delimiters, whatever stands before these, and may be cut off there.
    const std::size_t delimiter = input.bytes.find('|');
    result.Write(input.bytes);
    if (delimiter != std::string::npos) {
      result.Write(input.bytes.substr(0, delimiter) + "\t\r\n");
    }
    PutResultBack(workbench, input, result);
    std::u16string expected = text;
    if (delimiter != std::string::npos) {
      expected += u"\r\n" + text.substr(0, text.find(u'|')) + u"\t";
    }
    EXPECT_EQ(workbench.editor().Text(), expected);
    PutTextBack(workbench, input, u"Result.txt", text);
    EXPECT_EQ(workbench.editor().Text(), text);
    EXPECT_EQ(workbench.WorkFile("Result.txt") + "\r\n", input.bytes);
  }
}

// Half a character of GBK stands in the files as the byte that it is.
TEST(ResultFiles, HoldLoneBytesThatComeBackAsTheyAre) {
  ScriptedWorkbench workbench;
  workbench.editor().Open(u"\xDCBA\r\n汉");
  EXPECT_EQ(CaptureInput(workbench).bytes, "\xBA\r\n\xBA\xBA\r\n");
}

TEST(ResultFiles, MergeGivesEveryLineItsEnd) {
  ScriptedWorkbench workbench;
  ResultFile first(workbench, u"1");
  ResultFile second(workbench, u"2");
  ResultFile target(workbench, u"3");
  first.Write("a\r\n\r\nb");
  second.Write("c\n\r\n");
  NoProgress progress;
  MergeFiles({&first, &second}, target, progress);
  EXPECT_EQ(target.bytes(), "a\r\n\r\nb\r\nc\n\r\n");
}

}  // namespace
}  // namespace scrivanta::testing
