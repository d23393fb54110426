#include <map>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "text/Encoding.h"
#include "windows/input/InputPlayer.h"

namespace scrivanta {
namespace {

// Knows what is held down, and stops after a while.
class Keyboard final : public InputDevice, public Progress {
 public:
  void Key(KeyCode key, bool down) override { held[key] = down; }
  void Character(char16_t) override {}
  void MoveTo(ScreenPoint) override {}
  void Button(MouseButton button, bool down) override { heldButtons[button] = down; }
  void Wheel(bool) override {}
  Activation Activate(const std::u16string&) override { return Activation::kInFront; }
  bool HasWindow(const std::u16string& caption) override { return caption.size() > 1; }
  std::optional<ScreenPoint> ClientCorner(const std::u16string& caption) override {
    return HasWindow(caption) ? std::optional(ScreenPoint{1, 2}) : std::nullopt;
  }
  void Sleep(std::chrono::milliseconds) override {}

  void Report(std::uint64_t, std::uint64_t) override {
    constexpr int kMostReports = 200;
    if (++reports_ > kMostReports) {
      throw Interrupted();
    }
  }

  std::map<KeyCode, bool> held;
  std::map<MouseButton, bool> heldButtons;

 private:
  int reports_ = 0;
};

// Whatever is understood can be told and played, and leaves nothing held down.
void FuzzInputScript(std::string_view bytes) {
  std::vector<InputStep> steps;
  try {
    steps = ParseInputScript(Decode(Encoding::kUtf8, bytes));
  } catch (const InputScriptError&) {
    return;
  }
  std::size_t line = 0;
  for (const InputStepText& step : DescribeSteps(steps)) {
    EXPECT_GT(step.line, line);
    line = step.line;
    EXPECT_FALSE(step.text.empty());
  }
  Keyboard keyboard;
  try {
    InputPlayer(keyboard, std::chrono::milliseconds(0), keyboard).Play(steps, std::chrono::milliseconds(0));
  } catch (const Interrupted&) {
    // Long enough.
  } catch (const InputPlayError&) {
    // A window that is not there.
  }
  for (const auto& [key, isHeld] : keyboard.held) {
    EXPECT_FALSE(isHeld) << key;
  }
  for (const auto& [button, isHeld] : keyboard.heldButtons) {
    EXPECT_FALSE(isHeld);
  }
}

TEST(Fuzz, InputScript) {
  static constexpr std::string_view kInputs[] = {
      "激活 记事本\r\n相对 记事本\n移动 1 -2\n单击 右 3,4\n双击\n绝对\n拖动 0 0 80 8\n滚轮 -3",
      "# 说明\n按键 Ctrl+Shift+S\nAlt+F4\n输入 a 中\n等待 5\n等待窗口 标 题 3\n循环 2\n循环 3\nF5\n结束\n结束"};
  static constexpr std::string_view kTokens[] = {"\n",   " ",    "，",   "　",   "-",    "9",    "+",    "循环 2\n",
                                                 "结束", "单击", "拖动", "按键", "输入", "等待", "Ctrl", "左"};
  RunFuzz(FuzzInputScript, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
