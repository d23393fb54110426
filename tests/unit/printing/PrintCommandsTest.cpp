#include <gtest/gtest.h>

#include "printing/PageAreas.h"
#include "printing/PrintCommands.h"
#include "support/ScriptedWorkbench.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

using testing::ScriptedWorkbench;

// What a printer was told, line by line.
struct Log {
  std::vector<std::u16string> lines;
  PrintedText text;
};

class RecordingJob final : public PrintJob {
 public:
  RecordingJob(Log& log, std::size_t pages) : log_(log), pages_(pages) {}
  ~RecordingJob() override { log_.lines.push_back(isFinished_ ? u"closed" : u"cancelled"); }

  std::size_t LayOut(const PrintedText& text, Progress&) override {
    log_.text = text;
    return pages_;
  }
  void Start(const std::u16string& name) override { log_.lines.push_back(u"start " + name); }
  void PrintPage(std::size_t, const PageHeader& header) override {
    log_.lines.push_back(header.name + u": " + header.number);
  }
  void Finish() override { isFinished_ = true; }

 private:
  Log& log_;
  std::size_t pages_;
  bool isFinished_ = false;
};

class ScriptedPrintDialogs final : public PrintDialogs {
 public:
  std::optional<PrintOrder> AskForOrder(const PageSetup& setup, bool hasSelection) override {
    shownSetup = setup;
    offersSelection = hasSelection;
    return std::exchange(order, std::nullopt);
  }
  std::optional<PageSetup> AskForSetup(const PageSetup& setup) override {
    shownSetup = setup;
    return newSetup;
  }

  std::optional<PrintOrder> order;
  std::optional<PageSetup> newSetup;
  std::optional<PageSetup> shownSetup;
  bool offersSelection = false;
};

class PrintCommandsTest : public ::testing::Test {
 protected:
  PrintCommandsTest() { RegisterPrintCommands(table, dialogs); }

  // Prints from a printer on which the text takes the pages.
  void Print(std::size_t pages, bool selectionOnly, std::size_t first, std::size_t last) {
    log.lines.clear();
    dialogs.order = PrintOrder{std::make_unique<RecordingJob>(log, pages), selectionOnly, first, last};
    Run("mnuPrint");
  }
  void Run(std::string_view command) { EXPECT_TRUE(table.Run(command, workbench)); }

  ScriptedWorkbench workbench;
  ScriptedPrintDialogs dialogs;
  CommandTable table;
  Log log;
};

TEST_F(PrintCommandsTest, PrintsThePagesThatWereAskedFor) {
  workbench.editor().Open(u"一\r\n二", {{3}, 1});
  workbench.document().path = "folder/书目.txt";
  Print(3, false, 1, 0);
  EXPECT_EQ(log.lines,
            (std::vector<std::u16string>{u"start 书目.txt", u"书目.txt: 第 1 页，共 3 页",
                                         u"书目.txt: 第 2 页，共 3 页", u"书目.txt: 第 3 页，共 3 页", u"closed"}));
  EXPECT_EQ(log.text.text, u"一\r\n二");
  EXPECT_FALSE(log.text.isSelection);
  EXPECT_TRUE(dialogs.offersSelection);
  EXPECT_EQ(workbench.status, u"已打印 3 页");
  EXPECT_EQ(workbench.worksAlive, 0);

  Print(3, false, 2, 2);
  EXPECT_EQ(log.lines, (std::vector<std::u16string>{u"start 书目.txt", u"书目.txt: 第 2 页，共 3 页", u"closed"}));
  Print(3, false, 3, 99);
  EXPECT_EQ(log.lines.size(), 3U);
  Print(1, true, 1, 0);
  EXPECT_EQ(log.text.text, u"二");
  EXPECT_TRUE(log.text.isSelection);
  EXPECT_TRUE(workbench.prompts().messages.empty());

  Print(3, false, 4, 9);
  EXPECT_EQ(log.lines, std::vector<std::u16string>{u"cancelled"});
  ASSERT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_EQ(workbench.prompts().messages.front().text, u"文档没有这些页，什么也没有打印！");
}

TEST_F(PrintCommandsTest, AnEmptyDocumentIsNotPrinted) {
  Run("mnuPrint");
  ASSERT_EQ(workbench.prompts().messages.size(), 1U);
  EXPECT_EQ(workbench.prompts().messages.front().text, u"文档是空的，没有可打印的内容！");
  EXPECT_FALSE(dialogs.shownSetup);

  workbench.editor().Open(u"a");
  Run("mnuPrint");  // cancelled
  EXPECT_TRUE(dialogs.shownSetup);
  EXPECT_FALSE(dialogs.offersSelection);
  EXPECT_EQ(workbench.worksStarted, 0);
}

TEST_F(PrintCommandsTest, AStoppedJobIsCancelled) {
  workbench.editor().Open(u"a");
  workbench.interruptAfter = 3;
  Print(5, false, 1, 0);
  EXPECT_EQ(workbench.status, u"");
  EXPECT_EQ(log.lines, (std::vector<std::u16string>{u"start 无标题", u"无标题: 第 1 页，共 5 页",
                                                    u"无标题: 第 2 页，共 5 页", u"cancelled"}));
  EXPECT_EQ(workbench.worksAlive, 0);
}

TEST_F(PrintCommandsTest, PageSetupIsKept) {
  dialogs.newSetup = PageSetup{.margins = {100, 200, 300, 0}, .landscape = true, .paper = 11};
  Run("mnuShowPageSetupDlg");
  EXPECT_EQ(dialogs.shownSetup, PageSetup());
  const PageSetup chosen = *dialogs.newSetup;
  dialogs.newSetup.reset();
  Run("mnuShowPageSetupDlg");
  EXPECT_EQ(dialogs.shownSetup, chosen);
  workbench.editor().Open(u"a");
  Run("mnuPrint");
  EXPECT_EQ(dialogs.shownSetup, chosen);

  for (const std::u16string_view nonsense : {u"-5", u"1e30", u""}) {
    workbench.settings().Save(u"PrintMarginLeft", nonsense, Store::kRegistry, kWindowSection);
    workbench.settings().Save(u"PrintPaper", nonsense, Store::kRegistry, kWindowSection);
    const PageSetup read = ReadPageSetup(workbench.settings());
    EXPECT_EQ(read.margins, (PageMargins{PageMargins().left, 200, 300, 0}));
    EXPECT_EQ(read.paper, 0);
  }
}

TEST(PageAreasTest, TheHeaderStandsWithinTheMargins) {
  // A4 at 254 dots per inch, a dot being a tenth of a millimetre; the device cannot print on the outer 5 mm.
  const PaperMetrics paper = {254, 254, 2100, 2970, 50, 50, 2000, 2870};
  const PageAreas areas = AreasOf(paper, {2000, 3000, 1000, 1500}, 40);
  EXPECT_EQ(areas.header, (PageRect{150, 250, 1950, 290}));
  EXPECT_EQ(areas.text, (PageRect{150, 310, 1950, 2770}));
  // Narrower than what the device leaves free.
  EXPECT_EQ(AreasOf(paper, {0, 0, 0, 0}, 40).text, (PageRect{0, 60, 2000, 2870}));
  // No room left across: that axis gives way, the other stays.
  EXPECT_EQ(AreasOf(paper, {15000, 3000, 15000, 1500}, 40).text, (PageRect{0, 310, 2000, 2770}));
}

}  // namespace
}  // namespace scrivanta
