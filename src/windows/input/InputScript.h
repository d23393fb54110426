// Keys and mouse written as lines, one action a line.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/ExplainedError.h"
#include "windows/RelativeCoordinates.h"
#include "windows/input/KeyNames.h"

namespace scrivanta {

enum class InputKind {
  kActivate,     // 激活 标题
  kMove,         // 移动 x y
  kClick,        // 单击 [左|右|中] [x y]
  kDoubleClick,  // 双击, likewise
  kDrag,         // 拖动 x1 y1 x2 y2
  kWheel,        // 滚轮 n
  kKeys,         // 按键 Ctrl+Shift+S, or the keys alone
  kType,         // 输入 文本
  kWait,         // 等待 毫秒
  kWaitWindow,   // 等待窗口 标题 秒
  kRelative,     // 相对 标题: from here on places are counted from the inside of that window
  kAbsolute,     // 绝对: from the screen again
  kLoop,         // 循环 n … 结束
};

enum class MouseButton { kLeft, kRight, kMiddle };

struct InputStep {
  InputKind kind = InputKind::kWait;
  std::size_t line = 0;                  // from 1
  std::u16string text = {};              // a caption, or what is typed
  std::optional<ScreenPoint> from = {};  // where it happens; nothing: where the pointer is
  std::optional<ScreenPoint> to = {};    // of a drag
  MouseButton button = MouseButton::kLeft;
  long long count = 0;                  // turns of the wheel, away from the user; rounds of a loop
  std::chrono::milliseconds time = {};  // to wait
  std::vector<KeyCode> keys = {};
  std::vector<InputStep> body = {};  // of a loop
};

// A line that is no action: names it and the word.
class InputScriptError : public ExplainedError {
 public:
  InputScriptError(std::size_t line, std::u16string_view word, std::u16string_view what);
};

// Empty lines, and those that begin with "#" or "//", are left out. Throws InputScriptError.
std::vector<InputStep> ParseInputScript(std::u16string_view text);

// What would be done, a line a step, with the bodies of loops set in.
struct InputStepText {
  std::size_t line;
  std::u16string text;
};
std::vector<InputStepText> DescribeSteps(const std::vector<InputStep>& steps);

}  // namespace scrivanta
