// Windows and processes of a desktop: found, told and changed.
#include <functional>

#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "text/Encoding.h"
#include "windows/desk/WindowsDialog.h"

namespace scrivanta::testing {
namespace {

constexpr ProcessId kOwn = 7;

WindowBounds Bounds(long long left, long long top, long long width, long long height) {
  return {.corner = {left, top}, .width = width, .height = height};
}

// A program's window with a frame around two boxes, one of them hidden, and the own window behind it.
class Desk final : public WindowDesk {
 public:
  std::vector<DeskWindow> Windows() const override { return windows; }
  std::vector<DeskProcess> Processes() const override { return processes; }
  std::optional<DeskWindow> Find(WindowHandle window) const override {
    const DeskLists lists{.windows = windows, .processes = {}};
    const DeskWindow* const found = lists.WindowOf(window);
    return found != nullptr ? std::optional(*found) : std::nullopt;
  }
  WindowHandle TopWindowAt(ScreenPoint point) const override {
    return windows[0].bounds.Holds(point) ? windows[0].handle : 0;
  }
  ProcessId OwnProcess() const override { return kOwn; }

  std::u16string Text(WindowHandle window) const override {
    if (window == 3) {
      throw WindowDeskError(u"密码");
    }
    return window == 4 ? u"一\r\n二" : u"";
  }
  void SetText(WindowHandle window, const std::u16string& text) override { Note(u"text", window, text); }
  void BringUp(WindowHandle window) override { Note(u"up", window); }
  void Show(WindowHandle window, bool visible) override { Note(visible ? u"show" : u"hide", window); }
  void Move(WindowHandle window, const WindowBounds& bounds) override { Note(u"move", window, BoundsText(bounds)); }
  void KeepOnTop(WindowHandle window, bool onTop) override { Note(onTop ? u"top" : u"untop", window); }
  void Close(WindowHandle window) override { Note(u"close", window); }
  void EndProcess(const DeskProcess& process) override { Note(u"end", process.id); }

  void Note(const std::u16string& what, WindowHandle window, const std::u16string& more = {}) {
    done = what + u" " + HandleText(window).back() + (more.empty() ? u"" : u" " + more);
  }

  std::vector<DeskWindow> windows = {
      {.handle = 1, .caption = u"画图", .className = u"Paint", .process = 20, .bounds = Bounds(100, 100, 400, 300)},
      {.handle = 2,
       .parent = 1,
       .caption = u"框",
       .className = u"Button",
       .process = 20,
       .bounds = Bounds(110, 110, 200, 100)},
      {.handle = 3,
       .parent = 1,
       .className = u"Edit",
       .process = 20,
       .bounds = Bounds(120, 120, 50, 20),
       .isVisible = false},
      {.handle = 4, .parent = 1, .className = u"Edit", .process = 20, .bounds = Bounds(120, 120, 60, 30)},
      {.handle = 5, .caption = u"藏着", .className = u"Tray", .process = 30, .isVisible = false},
      {.handle = 6, .caption = u"Scrivanta", .className = u"Main", .process = kOwn, .isOnTop = true}};
  std::vector<DeskProcess> processes = {
      {.id = 4, .name = u"guard.exe"},
      {.id = kOwn, .name = u"Scrivanta.exe", .path = u"C:\\S\\Scrivanta.exe"},
      {.id = 20, .parent = kOwn, .name = u"paint.exe", .path = u"C:\\P\\paint.exe", .memory = 2'048'000},
      {.id = 30, .name = u"Explorer.EXE", .path = u"C:\\W\\Explorer.EXE"}};
  std::u16string done;
};

class Controls final : public WindowsView {
 public:
  std::u16string Filter() const override { return filter; }
  void SetFilter(const std::u16string& newFilter) override { filter = newFilter; }
  bool WithHidden() const override { return withHidden; }
  void SetWithHidden(bool with) override { withHidden = with; }
  void ShowWindows(const std::vector<WindowRow>& rows) override {
    windows.clear();
    for (const WindowRow& window : rows) {
      windows += std::u16string(window.depth, u'.') + window.text + u"|";
    }
    row.reset();
  }
  void ShowProcesses(const std::vector<ProcessRow>& rows) override {
    processes.clear();
    for (const ProcessRow& process : rows) {
      processes += process.name + u"|";
    }
  }
  void ChooseWindow(std::size_t newRow) override { row = newRow; }
  void ShowDetails(const std::u16string& newDetails) override { details = newDetails; }
  std::u16string Text() const override { return text; }
  void ShowText(const std::u16string& newText) override { text = newText; }
  void ShowRemark(const std::u16string& newRemark) override { remark = newRemark; }

  std::u16string filter;
  bool withHidden = false;
  std::u16string windows;
  std::u16string processes;
  std::optional<std::size_t> row;
  std::u16string details;
  std::u16string text;
  std::u16string remark;
};

class WindowsDialogTest : public ::testing::Test {
 protected:
  // What is refused, with its message; empty when it is done.
  static std::u16string Refused(const std::function<void()>& action) {
    try {
      action();
      return {};
    } catch (const ExplainedError& error) {
      return error.chinese();
    }
  }

  ScriptedWorkbench workbench;
  Desk desk;
  Controls view;
  WindowsDialog dialog{workbench, desk};
};

TEST_F(WindowsDialogTest, FilterKeepsWhatHoldsAllWordsAndWhereItStands) {
  dialog.Refresh(view);
  EXPECT_EQ(view.windows, u"“画图” Paint　paint.exe|.“框” Button|.Edit|“Scrivanta” Main　Scrivanta.exe|");
  EXPECT_EQ(view.processes, u"guard.exe|Scrivanta.exe|paint.exe|Explorer.EXE|");
  EXPECT_EQ(view.remark, u"4个窗口和控件，4个进程");
  const std::tuple<std::u16string_view, bool, std::u16string_view> cases[] = {
      {u"EDIT 20", false, u"“画图” Paint　paint.exe|.Edit|"},
      {u"edit", true, u"“画图” Paint　paint.exe|.Edit　（看不见）|.Edit|"},
      {u"0x00000005", false, u""},
      {u"0x00000005", true, u"“藏着” Tray　Explorer.EXE　（看不见）|"},
      {u"画图 button", false, u""}};
  for (const auto& [filter, withHidden, expected] : cases) {
    view.filter = filter;
    view.withHidden = withHidden;
    dialog.Show(view);
    EXPECT_EQ(view.windows, expected) << Encode(Encoding::kUtf8, filter);
  }
  view.filter = u"c:\\p";
  dialog.Show(view);
  EXPECT_EQ(view.processes, u"paint.exe|");
  EXPECT_EQ(view.windows, u"");
}

TEST_F(WindowsDialogTest, CrossChoosesTheSmallestControlWhateverTheFilter) {
  view.filter = u"scrivanta";
  dialog.Refresh(view);
  dialog.Tell(view, {130, 130});
  EXPECT_EQ(view.remark, u"130, 130　Edit");
  dialog.ChooseAt(view, {130, 130});
  EXPECT_EQ(view.row, 2U);
  EXPECT_EQ(view.filter, u"");
  EXPECT_EQ(view.text, u"一\r\n二");
  EXPECT_EQ(view.details,
            u"标题：\r\n类：Edit\r\n句柄：0x00000004\r\n进程：paint.exe（20）\r\n路径：C:\\P\\paint.exe\r\n"
            u"位置：120, 120，60×30");
  dialog.ChooseAt(view, {200, 180});
  EXPECT_EQ(view.row, 1U);
  dialog.ChooseAt(view, {450, 350});
  EXPECT_EQ(view.row, 0U);
  dialog.ChooseAt(view, {0, 0});
  EXPECT_FALSE(view.row);
  EXPECT_EQ(view.details, u"");
}

TEST_F(WindowsDialogTest, ActionsGoToTheChosenWindowIfItIsStillThat) {
  dialog.Refresh(view);
  EXPECT_NE(Refused([&] { dialog.BringUp(view); }), u"");
  dialog.Choose(view, 2);
  view.text = u"新";
  dialog.SetText(view);
  EXPECT_EQ(desk.done, u"text 4 新");
  EXPECT_EQ(view.row, 2U);
  dialog.SetVisible(view, false);
  EXPECT_EQ(desk.done, u"hide 4");
  EXPECT_TRUE(view.withHidden);
  dialog.PutTextIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"一\r\n二");
  EXPECT_NE(Refused([&] { dialog.SwitchOnTop(view); }), u"");

  dialog.Choose(view, 0);
  dialog.SwitchOnTop(view);
  EXPECT_EQ(desk.done, u"top 1");
  workbench.prompts().Will(std::u16string(u"-10, 20 300 200"));
  dialog.Move(view);
  EXPECT_EQ(desk.done, u"move 1 -10, 20，300×200");
  EXPECT_EQ(workbench.prompts().inputs.at(0).preset, u"100 100 400 300");
  for (const std::u16string bad : {u"1 2 3", u"1 2 0 4", u"1 2 3 4 5", u"a 2 3 4"}) {
    desk.done.clear();
    workbench.prompts().Will(bad);
    EXPECT_NE(Refused([&] { dialog.Move(view); }), u"");
    EXPECT_EQ(desk.done, u"");
  }
  workbench.prompts().Will(Answer::kNo);
  dialog.Close(view);
  EXPECT_EQ(desk.done, u"");
  workbench.prompts().Will(Answer::kYes);
  dialog.Close(view);
  EXPECT_EQ(desk.done, u"close 1");

  // Its handle has become another window's.
  desk.windows[0].className = u"Other";
  desk.done.clear();
  EXPECT_EQ(Refused([&] { dialog.BringUp(view); }), u"这个窗口已经不在了，请刷新：\n画图");
  EXPECT_EQ(desk.done, u"");
}

TEST_F(WindowsDialogTest, OwnWindowsAreNotChanged) {
  view.filter = u"scrivanta";
  dialog.Refresh(view);
  dialog.Choose(view, 0);
  for (const auto& action :
       std::vector<std::function<void()>>{[&] { dialog.SetVisible(view, false); }, [&] { dialog.Move(view); },
                                          [&] { dialog.Close(view); }, [&] { dialog.SetText(view); }}) {
    EXPECT_EQ(Refused(action), u"这是本程序自己的窗口，不能这样改它。");
  }
  dialog.SwitchOnTop(view);
  EXPECT_EQ(desk.done, u"untop 6");
}

TEST_F(WindowsDialogTest, ProcessEndsAfterAQuestionThatWarns) {
  dialog.Refresh(view);
  const auto end = [this](std::size_t row, Answer answer) {
    desk.done.clear();
    workbench.prompts().Will(answer);
    dialog.EndProcess(view, row);
    return workbench.prompts().messages.back();
  };
  const Message question = end(2, Answer::kNo);
  EXPECT_EQ(question.text, u"结束进程“paint.exe”（20）？\n它没有机会存盘，没有存的内容会丢失。");
  EXPECT_EQ(question.defaultAnswer, Answer::kNo);
  EXPECT_EQ(desk.done, u"");
  end(2, Answer::kYes);
  EXPECT_EQ(desk.done, u"end 4");  // 20 is 0x14
  EXPECT_NE(end(1, Answer::kNo).text.find(u"这是本程序自己"), std::u16string::npos);
  for (const std::size_t row : {0U, 3U}) {
    EXPECT_NE(end(row, Answer::kNo).text.find(u"这是系统的进程"), std::u16string::npos);
    EXPECT_EQ(workbench.prompts().messages.back().icon, Icon::kWarning);
  }
}

TEST_F(WindowsDialogTest, WhatIsShownGoesIntoTheDocument) {
  desk.windows[0].caption = u"画\t图";
  desk.windows[0].isMaximised = true;
  view.filter = u"paint";
  dialog.Refresh(view);
  dialog.PutWindowsIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(),
            u"层\t标题\t类\t句柄\t进程\t进程号\t左\t上\t宽\t高\t状态\r\n"
            u"0\t画 图\tPaint\t0x00000001\tpaint.exe\t20\t100\t100\t400\t300\t最大化\r\n"
            u"1\t框\tButton\t0x00000002\tpaint.exe\t20\t110\t110\t200\t100\t\r\n"
            u"1\t\tEdit\t0x00000004\tpaint.exe\t20\t120\t120\t60\t30\t\r\n");
  workbench.editor().Open(u"");
  dialog.PutProcessesIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(),
            u"名称\t进程号\t内存\t窗口\t路径\t父进程号\r\npaint.exe\t20\t2000 KB\t1\tC:\\P\\paint.exe\t7\r\n");
}

}  // namespace
}  // namespace scrivanta::testing
