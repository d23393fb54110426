#include <gtest/gtest.h>

#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

struct Case {
  std::vector<std::string> arguments;
  std::string input;
  std::string output;  // of a failure: what the message says
  int status = 0;
};

void Check(const Case& c) {
  const BatchResult result = RunBatchOn(c.input, c.arguments);
  std::string command;
  for (const std::string& argument : c.arguments) {
    command += argument + " ";
  }
  EXPECT_EQ(result.status, c.status) << command << result.errors;
  if (c.status == 0) {
    EXPECT_EQ(result.output, c.output) << command;
  } else {
    EXPECT_NE(result.errors.find(c.output), std::string::npos) << command << result.errors;
    EXPECT_EQ(result.output, "") << command;
  }
}

TEST(TableCommands, FixedWidths) {
  const Case cases[] = {
      {{"to-fixed-width"}, "", ""},
      {{"to-fixed-width"}, "a\tbcd\n\nxyz\t\tq", "a  bcd \r\n       \r\nxyz   q\r\n"},
      {{"to-fixed-width", "--widths", "3,4,3", "--align", "lr0"}, "\xB0\xA1\t-5\t-5", "\xB0\xA1   -5-05\r\n"},
      {{"to-fixed-width", "--width-unit", "characters"}, "\xB0\xA1\nb", "\xB0\xA1\r\nb\r\n"},
      // A character of four bytes in GBK and two cells.
      {{"to-fixed-width", "--encoding", "utf-8"},
       "\xF0\xA0\xAE\xB7\n\xE4\xB8\xAD",
       "\xF0\xA0\xAE\xB7\r\n\xE4\xB8\xAD  \r\n"},
      {{"to-fixed-width", "--encoding", "utf-8", "--width-unit", "cells"},
       "\xF0\xA0\xAE\xB7\nb\n\xC2\xB1\n",
       "\xF0\xA0\xAE\xB7\r\nb \r\n\xC2\xB1\r\n"},
      {{"to-fixed-width", "--delimiter", "comma", "--ctrl-z"}, "\"a,b\",c", "a,bc\r\n\x1A"},
      {{"to-fixed-width", "--widths", "2,1"},
       "ab\tc\nabc\t\n\tcd\te",
       "line 2, column 1: the field is 3 wide, 2 are allowed; line 3, column 2: the field is 2 wide, 1 are allowed; "
       "line 3, column 3: there is no width for the field",
       3},
      {{"to-fixed-width", "--delimiter", "comma"}, "x,\"a\nb\"", "line 1, column 2: the field holds a line break", 3},
      {{"to-fixed-width", "--widths", "2,"}, "", "such as 10,8", 2},
      {{"to-fixed-width", "--align", "lx"}, "", "l, r or 0", 2},
      {{"from-fixed-width", "--widths", "4,3", "--align", "lr"}, "a b   5\r\n  c 006\n\x1A", "a b\t5\r\n  c\t006\r\n"},
      {{"from-fixed-width", "--widths", "2,2", "--delimiter", "comma"}, "\"x,y\n1", "\"\"\"x\",\",y\"\r\n1,\r\n"},
      {{"from-fixed-width", "--widths", "4"}, "a\tb", "line 1, column 1: the field holds a delimiter", 3},
      {{"from-fixed-width", "--widths", "1,2"}, "\xB0\xA1 ", "line 1, column 1: a character lies across", 3},
      {{"from-fixed-width"}, "", "--widths or --layout", 2},
  };
  for (const Case& c : cases) {
    Check(c);
  }
}

TEST(TableCommands, LayoutIsKeptAndUsedAgain) {
  const TemporaryFolder folder;
  const std::string layout = (folder.path() / "layout.txt").string();
  const std::string table = "abc\t7\r\nd\t42\r\n";
  const BatchResult fixed = RunBatchOn(table, {"to-fixed-width", "--align", "lr", "--ctrl-z", "--save-layout", layout});
  EXPECT_EQ(fixed.output, "abc 7\r\nd  42\r\n\x1A");
  EXPECT_EQ(ReadWholeFile(layout), "unit gbk\r\nctrl-z\r\n3 l\r\n2 r\r\n");
  EXPECT_EQ(RunBatchOn(fixed.output, {"from-fixed-width", "--layout", layout}).output, table);
  EXPECT_EQ(RunBatchOn(table, {"to-fixed-width", "--layout", layout}).output, fixed.output);
  folder.Put("layout.txt", "# of the bank\n\n3  l # name\r\n2 x\n");
  Check({{"from-fixed-width", "--layout", layout}, "", "line 4 of the layout", 3});
}

TEST(TableCommands, SplitColumns) {
  const Case cases[] = {
      {{"split-columns", "--at", "2,5"},
       "abcdefg\na\n\xB0\xA1\xB0\xA1\xB0\xA1",
       "ab\tcde\tfg\r\na\t\t\r\n\xB0\xA1\t\xB0\xA1\t\xB0\xA1\r\n"},
      {{"split-columns", "--at", "2,5", "--width-unit", "characters"},
       "\xB0\xA1"
       "bcdef",
       "\xB0\xA1"
       "b\tcde\tf\r\n"},
      {{"split-columns", "--delimiter", "comma"}, "a,\"b,\"\"c\",\n\n", "a\tb,\"c\t\r\n\r\n"},
      {{"split-columns", "--delimiter", "blanks"}, "  a   b\n", "a\tb\r\n"},
      {{"split-columns", "--delimiter", "=>"}, "a=>b", "a\tb\r\n"},
      {{"split-columns", "--pattern", "[,;] *"}, "a, b;c", "a\tb\tc\r\n"},
      {{"split-columns", "--pattern", "("}, "a", "", 2},
      {{"split-columns", "--delimiter", "comma"}, "a\tb,c", "line 1, column 1", 3},
      {{"split-columns", "--at", "5,5"}, "", "must rise", 2},
      {{"split-columns", "--at", "5", "--delimiter", "tab"}, "", "one of", 2},
  };
  for (const Case& c : cases) {
    Check(c);
  }
}

TEST(TableCommands, ColumnsAndBack) {
  struct Way {
    std::vector<std::string> options;
    std::string lines;
    std::string columns;
    bool comesBack = true;
  };
  const Way ways[] = {
      {{"--count", "3"}, "", ""},
      {{"--count", "1"}, "a\r\n\r\nb\r\n", "a\r\n\r\nb\r\n"},
      {{"--count", "2", "--gap", "1"}, "1\r\n22\r\n3\r\n4\r\n5\r\n", "1  4\r\n22 5\r\n3\r\n"},
      {{"--count", "3", "--across", "--gap", "1"}, "1\r\n22\r\n3\r\n444\r\n", "1   22 3\r\n444\r\n", false},
      {{"--count", "2", "--lines", "2", "--width", "3", "--gap", "0"},
       "1\r\n\r\n333\r\n4\r\n5\r\n6\r\n7\r\n",
       "1  333\r\n   4\r\n5  7\r\n6\r\n"},
      {{"--count", "2", "--width", "4", "--gap", "1"},
       "\xB0\xA1\r\nb\r\n\xB0\xA1\xB0\xA1\r\n",
       "\xB0\xA1   \xB0\xA1\xB0\xA1\r\nb\r\n"},
      // Neither what fills nor what the line brings along ends a line in blanks.
      {{"--count", "2", "--gap", "1"}, "a\r\nb \r\n\r\n", "a\r\nb\r\n", false},
      // Wrapped between characters.
      {{"--count", "2", "--width", "3", "--gap", "1"},
       "\xB0\xA1\xB0\xA1"
       "b\r\nc\r\n",
       "\xB0\xA1  c\r\n\xB0\xA1"
       "b\r\n",
       false},
      {{"--count", "2", "--width", "2", "--gap", "1", "--too-wide", "widen"},
       "aaaa\r\nb\r\nc\r\n",
       "aaaa c\r\nb\r\n",
       false},
      {{"--count", "2", "--width", "1", "--gap", "1"},
       "\xB0\xA1"
       "b\r\n",
       "\xB0\xA1 b\r\n",
       false},
  };
  for (const Way& way : ways) {
    std::vector<std::string> arguments = {"columns"};
    arguments.insert(arguments.end(), way.options.begin(), way.options.end());
    Check({arguments, way.lines, way.columns});
    if (way.comesBack) {
      arguments.emplace_back("--back");
      Check({arguments, way.columns, way.lines});
    }
  }
  Check({{"columns", "--count", "3", "--back"}, "a  b\n", "into 2 columns only", 3});
  Check({{"columns", "--count", "2", "--width", "2", "--back"},
         "abc  d\n",
         "line 1, column 1: text stands in the gap",
         3});
  Check({{"columns", "--count", "0"}, "", "", 2});
  Check({{"columns", "--count", "2", "--width", "2", "--too-wide", "cut"}, "", "without a report", 2});
}

TEST(TableCommands, ColumnsSayWhatTheyCut) {
  const TemporaryFolder folder;
  const std::string cutOff = (folder.path() / "cut.txt").string();
  Check({{"columns", "--count", "2", "--width", "3", "--too-wide", "cut", "--cut-off", cutOff},
         "\xB0\xA1\xB0\xA1\nab\nabcd",
         "\xB0\xA1   abc\r\nab\r\n"});
  EXPECT_EQ(ReadWholeFile(cutOff), "1\t\xB0\xA1\r\n3\td\r\n");
}

TEST(TableCommands, JoinOfEveryKind) {
  const TemporaryFolder folder;
  const std::string second = folder.Put("second.txt", "x\t2\tX\r\ny\t1\tY\r\nz\t2\tZ\r\nw\t9\r\n").string();
  const std::string firstList = (folder.path() / "first-only.txt").string();
  const std::string secondList = (folder.path() / "second-only.txt").string();
  const std::string first = "2\ta\n1\tb\n7\n2\tc\n";
  const std::string pairs = "2\ta\tx\tX\r\n2\ta\tz\tZ\r\n1\tb\ty\tY\r\n";
  const std::string morePairs = "2\tc\tx\tX\r\n2\tc\tz\tZ\r\n";
  const std::string left = "7\t\t\t\r\n";
  const std::string right = "9\t\tw\t\r\n";
  const std::vector<std::string> join = {"join", "-", second, "--key", "A", "--second-key", "2"};
  for (const auto& [kind, rows] : std::map<std::string, std::string>{{"inner", pairs + morePairs},
                                                                     {"left", pairs + left + morePairs},
                                                                     {"right", pairs + morePairs + right},
                                                                     {"full", pairs + left + morePairs + right}}) {
    std::vector<std::string> arguments = join;
    arguments.insert(arguments.end(),
                     {"--kind", kind, "--unmatched-first", firstList, "--unmatched-second", secondList});
    Check({arguments, first, rows});
    EXPECT_EQ(ReadWholeFile(firstList), "7\r\n");
    EXPECT_EQ(ReadWholeFile(secondList), "w\t9\r\n");
  }
  Check({join, "", ""});
  Check({{"join", "-", second, "--key", "4"}, first, "no column \"4\"", 2});
  Check({{"join", "-", second, "--key", "name"}, first, "no column \"name\"", 2});
  Check({{"join", "-", second, "--key", "1", "--second-key", "1,2"}, first, "different numbers", 2});
  Check({{"join", "-", (folder.path() / "none").string(), "--key", "1"}, first, "none", 3});
  Check({{"join", "-", "--key", "1"}, first, "SECOND", 2});
}

TEST(TableCommands, JoinByNamesAndLooseKeys) {
  const TemporaryFolder folder;
  const std::string second = folder.Put("second.csv", "\xEF\xBB\xBFno,id,\"a,b\"\n1,\" x\",\"1,2\"\n2,Y,\n").string();
  const std::string first = "id\tage\r\n\xEF\xBC\xB8\t5\r\ny\t6\r\n";
  const std::vector<std::string> join = {"join",  "-",          second, "--key", "id", "--header", "--second-delimiter",
                                         "comma", "--encoding", "utf-8"};
  struct Loose {
    std::vector<std::string> options;
    std::string output;
  };
  const Loose cases[] = {
      {{}, "id\tage\tno\ta,b\r\n"},
      {{"--ignore-case"}, "id\tage\tno\ta,b\r\ny\t6\t2\t\r\n"},
      {{"--ignore-case", "--ignore-blanks", "--ignore-width"},
       "id\tage\tno\ta,b\r\n\xEF\xBC\xB8\t5\t1\t1,2\r\ny\t6\t2\t\r\n"},
      {{"--ignore-case", "--columns", "age,1", "--second-columns", "a,b"}, "age\tid\ta,b\r\n6\ty\t\r\n"},
      {{"--kind", "right", "--columns", "age,id", "--second-columns", "C,id"},
       "age\tid\ta,b\tid\r\n\t x\t1,2\t x\r\n\tY\t\tY\r\n"},
  };
  for (const Loose& c : cases) {
    std::vector<std::string> arguments = join;
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    Check({arguments, first, c.output});
  }
  // Keys of two columns are not the same because their letters are.
  const std::string pairs = folder.Put("pairs.txt", "a\tbc\t1\nab\tc\t2\n").string();
  Check({{"join", "-", pairs, "--key", "1,2"}, "ab\tc\n", "ab\tc\t2\r\n"});
}

}  // namespace
}  // namespace scrivanta::testing
