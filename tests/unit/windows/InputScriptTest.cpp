// Keys and mouse out of lines: read, told, played and stopped.
#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "windows/input/InputPlayer.h"
#include "windows/input/SendInputDialog.h"

namespace scrivanta::testing {
namespace {

using std::chrono::milliseconds;

// Writes down what is done.
class Recorder final : public InputDevice {
 public:
  void Key(KeyCode key, bool down) override { Note((down ? u"+" : u"-") + ChordText({key})); }
  void Character(char16_t c) override { Note(std::u16string(1, c)); }
  void MoveTo(ScreenPoint point) override { Note(DecimalText(point.x) + u"," + DecimalText(point.y)); }
  void Button(MouseButton button, bool down) override {
    Note((down ? u"[" : u"]") + DecimalText(static_cast<int>(button)));
  }
  void Wheel(bool awayFromUser) override { Note(awayFromUser ? u"^" : u"v"); }
  Activation Activate(const std::u16string& caption) override {
    Note(u"a:" + caption);
    if (caption == u"没有") {
      return Activation::kNoWindow;
    }
    return slept < lateWindow && caption == u"迟来" ? Activation::kAsked : Activation::kInFront;
  }
  bool HasWindow(const std::u16string& caption) override {
    return caption != u"没有" && (caption != u"迟来" || slept >= lateWindow);
  }
  std::optional<ScreenPoint> ClientCorner(const std::u16string& caption) override {
    return HasWindow(caption) ? std::optional(corner) : std::nullopt;
  }
  void Sleep(milliseconds time) override { slept += time; }

  void Note(const std::u16string& what) {
    if (stopAfter > 0 && ++notes == stopAfter) {
      stopped = true;
    }
    done += done.empty() ? what : u" " + what;
  }

  std::u16string done;
  ScreenPoint corner{100, 200};
  milliseconds slept{};
  milliseconds lateWindow{500};
  int stopAfter = 0;
  int notes = 0;
  bool stopped = false;
};

class StoppedProgress final : public Progress {
 public:
  explicit StoppedProgress(const Recorder& recorder) : recorder_(recorder) {}
  void Report(std::uint64_t, std::uint64_t) override {
    if (recorder_.stopped) {
      throw Interrupted();
    }
  }

 private:
  const Recorder& recorder_;
};

std::u16string Play(std::u16string_view script, Recorder& recorder) {
  StoppedProgress progress(recorder);
  try {
    InputPlayer(recorder, milliseconds(0), progress).Play(ParseInputScript(script), milliseconds(0));
  } catch (const Interrupted&) {
    recorder.done += u" stop";
  }
  return recorder.done;
}

std::u16string Play(std::u16string_view script) {
  Recorder recorder;
  return Play(script, recorder);
}

TEST(InputScript, IsPlayedStepByStep) {
  EXPECT_EQ(
      Play(u"# 说明\r\n\r\n激活 a - b\r\n移动 1 -2\r\n单击\r\n单击 右\r\n单击 3,4\r\n　双击 中 5 6\r\n滚轮 -3\r\n"),
      u"a:a - b 1,-2 [0 ]0 [1 ]1 3,4 [0 ]0 5,6 [2 ]2 [2 ]2 v v v");
  EXPECT_EQ(Play(u"按键 Ctrl+shift+S\nF5\nAlt + 回车\n输入 a b \n按键 a\n// x"),
            u"+Ctrl +Shift +S -S -Shift -Ctrl +F5 -F5 +Alt +Enter -Enter -Alt a   b   +A -A");
  EXPECT_EQ(Play(u"拖动 0 0 80 8"), u"0,0 [0 10,1 20,2 30,3 40,4 50,5 60,6 70,7 80,8 ]0");
  EXPECT_EQ(Play(u"移动 1 1\n相对 记事本\n移动 1 1\n绝对\n移动 2 2"), u"1,1 101,201 2,2");
  EXPECT_EQ(Play(u"循环 2\n按键 a\n循环 2\n按键 b\n结束\n结束\n按键 c"), u"+A -A +B -B +B -B +A -A +B -B +B -B +C -C");
}

TEST(InputScript, FaultNamesLineAndWord) {
  const std::tuple<std::u16string_view, std::u16string_view> bad[] = {
      {u"点击 1 1", u"第1行的“点击”"},
      {u"\n移动 1", u"第2行看不懂：这里要写整数"},
      {u"移动 1 x", u"第1行的“x”"},
      {u"移动 1 2 3", u"第1行的“3”看不懂：多出来的"},
      {u"单击 上 1 1", u"第1行的“上”"},
      {u"单击 1", u"第1行看不懂"},
      {u"按键 Ctrl+Hyper", u"第1行的“Ctrl+Hyper”"},
      {u"按键", u"第1行"},
      {u"激活", u"第1行"},
      {u"等待 -1", u"第1行的“-1”看不懂：要在0到"},
      {u"等待窗口 标题", u"第1行的“标题”"},
      {u"循环 0\n结束", u"第1行的“0”"},
      {u"单击\n循环 2\n单击", u"第2行的“循环”看不懂：后面没有“结束”"},
      {u"结束", u"第1行的“结束”看不懂：前面没有“循环”"},
      {u"绝对 1", u"第1行的“1”"},
      {u"输入", u"第1行看不懂：后面要写输入的文字"},
      {u"a", u"第1行的“a”"}};
  std::u16string deep;
  for (const std::u16string_view line : {u"循环 2\n", u"结束\n"}) {
    for (int i = 0; i < 1000; ++i) {
      deep += line;
    }
  }
  EXPECT_THROW(ParseInputScript(deep), InputScriptError);
  for (const auto& [script, expected] : bad) {
    try {
      ParseInputScript(script);
      ADD_FAILURE() << Encode(Encoding::kUtf8, script);
    } catch (const InputScriptError& error) {
      EXPECT_TRUE(error.chinese().starts_with(expected)) << Encode(Encoding::kUtf8, error.chinese());
    }
  }
}

TEST(InputScript, StopLetsGoOfEverything) {
  Recorder recorder;
  recorder.stopAfter = 3;
  EXPECT_EQ(Play(u"按键 a\n循环 1000\n按键 b\n结束", recorder), u"+A -A +B -B stop");
  Recorder dragging;
  dragging.stopAfter = 4;
  EXPECT_EQ(Play(u"拖动 0 0 80 80", dragging), u"0,0 [0 10,10 20,20 ]0 stop");
  Recorder typing;
  typing.stopAfter = 2;
  EXPECT_EQ(Play(u"输入 很长的文字", typing), u"很 长 stop");
}

TEST(InputScript, WaitsForWindowsAndSaysWhichIsNotThere) {
  Recorder recorder;
  EXPECT_EQ(Play(u"等待窗口 迟来 1\n按键 a", recorder), u"+A -A");
  EXPECT_EQ(recorder.slept, milliseconds(500 + 300));
  Recorder brought;
  brought.lateWindow = milliseconds(30);
  EXPECT_EQ(Play(u"激活 迟来\n按键 a", brought), u"a:迟来 a:迟来 a:迟来 a:迟来 +A -A");
  Recorder behind;
  behind.lateWindow = milliseconds(60'000);
  EXPECT_THROW(Play(u"激活 迟来", behind), InputPlayError);
  for (const std::u16string_view script : {u"按键 a\n激活 没有", u"按键 a\n相对 没有", u"按键 a\n等待窗口 没有 1"}) {
    Recorder other;
    try {
      Play(script, other);
      ADD_FAILURE();
    } catch (const InputPlayError& error) {
      EXPECT_TRUE(error.chinese().starts_with(u"第2行停下了")) << Encode(Encoding::kUtf8, error.chinese());
    }
    EXPECT_TRUE(other.done.starts_with(u"+A -A"));
  }
}

class Controls final : public SendInputView {
 public:
  SendInputForm Form() const override { return form; }
  void ShowForm(const SendInputForm& newForm) override { form = newForm; }
  void ShowSteps(const std::vector<InputStepText>& newSteps) override { steps = newSteps; }
  void ShowRemark(const std::u16string& text) override { remark = text; }
  void StepAside(bool aside) override { moves += aside ? u"<" : u">"; }

  SendInputForm form;
  std::vector<InputStepText> steps;
  std::u16string remark;
  std::u16string moves;
};

class NoStopKey final : public StopKey {
 public:
  explicit NoStopKey(const Recorder& recorder) : recorder_(recorder) {}
  bool IsPressed() const override { return recorder_.stopped; }

 private:
  const Recorder& recorder_;
};

TEST(SendInputDialog, PlaysTheSelectionOnlyWhenAllOfItIsUnderstood) {
  ScriptedWorkbench workbench;
  Recorder recorder;
  Controls view;
  SendInputDialog dialog(workbench, recorder, [&recorder] { return std::make_unique<NoStopKey>(recorder); });
  workbench.editor().Open(u"按键 a\r\n单击 1 2", {{0}, 4});
  dialog.Open(view);
  EXPECT_EQ(view.form.script, u"按键 a");
  view.form = {.script = u"按键 a\r\n循环 2\r\n单击 1 2\r\n结束", .delay = u"2", .pause = u"30"};
  dialog.Check(view);
  ASSERT_EQ(view.steps.size(), 3U);
  EXPECT_EQ(view.steps[1].text, u"重复2次：");
  EXPECT_EQ(view.steps[2].text, u"　　单击左键 (1, 2)");
  EXPECT_EQ(view.steps[2].line, 3U);
  EXPECT_EQ(recorder.done, u"");
  dialog.Play(view);
  EXPECT_EQ(recorder.done, u"+A -A 1,2 [0 ]0 1,2 [0 ]0");
  EXPECT_EQ(recorder.slept, milliseconds(2000 + 3 * 30 + 300));
  EXPECT_EQ(view.remark, u"做完了，共3步");
  EXPECT_EQ(view.moves, u"<>");
  EXPECT_EQ(workbench.worksAlive, 0);

  recorder.stopAfter = 2;
  dialog.Play(view);
  EXPECT_EQ(view.remark, u"中途停止，做了1步");
  recorder.done.clear();
  view.form.script = u"按键 a\r\n单击 x";
  EXPECT_THROW(dialog.Play(view), InputScriptError);
  EXPECT_EQ(recorder.done, u"");
  view.form.script = u"按键 a";
  view.form.delay = u"马上";
  EXPECT_THROW(dialog.Play(view), ExplainedError);
  EXPECT_EQ(recorder.done, u"");
  view.form.script = u"单击";
  dialog.PutIntoDocument(view);
  EXPECT_EQ(workbench.editor().Text(), u"1\t单击左键 当前位置\r\n\r\n单击 1 2");
}

}  // namespace
}  // namespace scrivanta::testing
