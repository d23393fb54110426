#include "windows/input/InputScript.h"

#include <algorithm>
#include <array>

#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/LineText.h"
#include "text/Numbers.h"
#include "windows/ScriptLine.h"

namespace scrivanta {

namespace {

constexpr long long kMostRounds = 1'000'000;
constexpr std::size_t kDeepestLoop = 100;
constexpr long long kMostTurns = 1000;
constexpr long long kLongestWait = 24LL * 60 * 60 * 1000;  // milliseconds
constexpr std::u16string_view kBlanks = u" \t\u3000";

struct Verb {
  std::u16string_view word;
  InputKind kind;
};
constexpr auto kVerbs = std::to_array<Verb>({{u"激活", InputKind::kActivate},
                                             {u"移动", InputKind::kMove},
                                             {u"单击", InputKind::kClick},
                                             {u"双击", InputKind::kDoubleClick},
                                             {u"拖动", InputKind::kDrag},
                                             {u"滚轮", InputKind::kWheel},
                                             {u"按键", InputKind::kKeys},
                                             {u"输入", InputKind::kType},
                                             {u"等待", InputKind::kWait},
                                             {u"等待窗口", InputKind::kWaitWindow},
                                             {u"相对", InputKind::kRelative},
                                             {u"绝对", InputKind::kAbsolute},
                                             {u"循环", InputKind::kLoop}});
constexpr std::u16string_view kEnd = u"结束";
constexpr std::array<std::u16string_view, 3> kButtons = {u"左", u"右", u"中"};  // in the order of MouseButton

std::u16string_view Trimmed(std::u16string_view text) {
  return Trim(text, kBlanks);
}

// The words of a line, taken from its front. A comma separates too: "100, 200".
class Words {
 public:
  Words(std::u16string_view text, std::size_t line) : rest_(text), line_(line) {}

  bool IsEmpty() const { return Trimmed(rest_).empty(); }
  std::u16string_view Next() {
    constexpr std::u16string_view kSeparators = u" \t\u3000,，";
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kSeparators), rest_.size()));
    const std::u16string_view word = rest_.substr(0, rest_.find_first_of(kSeparators));
    rest_.remove_prefix(word.size());
    return word;
  }
  // Not of the line's end.
  std::u16string_view Peek() const { return Words(*this).Next(); }
  // All that is left, without the blank behind the word before it.
  std::u16string_view Rest() {
    const std::u16string_view rest = rest_.substr(rest_.empty() ? 0 : 1);
    rest_ = {};
    return rest;
  }
  std::u16string_view TakeLast() {
    rest_ = Trimmed(rest_);
    const std::size_t blank = rest_.find_last_of(kBlanks);
    const std::u16string_view word = rest_.substr(blank == rest_.npos ? 0 : blank + 1);
    rest_ = Trimmed(rest_.substr(0, rest_.size() - word.size()));
    return word;
  }
  std::u16string_view TakeCaption() {
    const std::u16string_view caption = Trimmed(rest_);
    if (caption.empty()) {
      Fail(caption, u"后面要写窗口的标题");
    }
    rest_ = {};
    return caption;
  }

  long long Number(long long least, long long most) {
    const std::u16string_view word = Next();
    return NumberOf(word, least, most);
  }
  long long NumberOf(std::u16string_view word, long long least, long long most) const {
    const auto number = LiteralNumber(word);
    if (!number) {
      Fail(word, u"这里要写整数");
    }
    if (*number < least || *number > most) {
      Fail(word, u"要在" + DecimalText(least) + u"到" + DecimalText(most) + u"之间");
    }
    return *number;
  }
  ScreenPoint Point() {
    constexpr long long kFarthest = 100'000;
    const long long x = Number(-kFarthest, kFarthest);
    const long long y = Number(-kFarthest, kFarthest);
    return {x, y};
  }
  void ExpectEnd() {
    if (!IsEmpty()) {
      Fail(Next(), u"多出来的");
    }
  }
  [[noreturn]] void Fail(std::u16string_view word, std::u16string_view what) const {
    throw InputScriptError(line_, word, what);
  }

 private:
  std::u16string_view rest_;
  std::size_t line_;
};

void TakeButtonAndPlace(Words& words, InputStep& step) {
  const auto* const button = std::ranges::find(kButtons, words.Peek());
  if (button != kButtons.end()) {
    words.Next();
    step.button = static_cast<MouseButton>(button - kButtons.begin());
  }
  if (!words.IsEmpty()) {
    step.from = words.Point();
  }
}

void TakeKeys(Words& words, InputStep& step) {
  const std::u16string_view chord = words.TakeCaption();
  const auto keys = ParseChord(chord);
  if (!keys) {
    words.Fail(chord, u"不是键的名字，要写成 Ctrl+Shift+S、F5、回车");
  }
  step.keys = *keys;
}

void TakeArguments(Words& words, InputStep& step) {
  switch (step.kind) {
    case InputKind::kActivate:
    case InputKind::kRelative:
      step.text = words.TakeCaption();
      return;
    case InputKind::kMove:
      step.from = words.Point();
      return;
    case InputKind::kClick:
    case InputKind::kDoubleClick:
      TakeButtonAndPlace(words, step);
      return;
    case InputKind::kDrag:
      step.from = words.Point();
      step.to = words.Point();
      return;
    case InputKind::kWheel:
      step.count = words.Number(-kMostTurns, kMostTurns);
      return;
    case InputKind::kKeys:
      TakeKeys(words, step);
      return;
    case InputKind::kType:
      step.text = words.Rest();
      if (step.text.empty()) {
        words.Fail(u"", u"后面要写输入的文字");
      }
      return;
    case InputKind::kWait:
      step.time = std::chrono::milliseconds(words.Number(0, kLongestWait));
      return;
    case InputKind::kWaitWindow: {
      constexpr long long kThousand = 1000;
      const std::u16string_view seconds = words.TakeLast();
      step.time = std::chrono::milliseconds(kThousand * words.NumberOf(seconds, 0, kLongestWait / kThousand));
      step.text = words.TakeCaption();
      return;
    }
    case InputKind::kAbsolute:
      return;
    case InputKind::kLoop:
      step.count = words.Number(1, kMostRounds);
      return;
  }
}

// A chord that stands alone; a single character might as well be a slip.
bool IsBareChord(std::u16string_view line) {
  return line.size() > 1 && ParseChord(line).has_value();
}

std::u16string PointText(const std::optional<ScreenPoint>& point) {
  return point ? u" (" + DecimalText(point->x) + u", " + DecimalText(point->y) + u")" : u" 当前位置";
}

std::u16string ButtonText(const InputStep& step) {
  return std::u16string(kButtons[static_cast<std::size_t>(step.button)]) + u"键";
}

std::u16string TextOf(const InputStep& step) {
  switch (step.kind) {
    case InputKind::kActivate:
      return u"激活窗口“" + step.text + u"”";
    case InputKind::kMove:
      return u"指针移到" + PointText(step.from);
    case InputKind::kClick:
      return u"单击" + ButtonText(step) + PointText(step.from);
    case InputKind::kDoubleClick:
      return u"双击" + ButtonText(step) + PointText(step.from);
    case InputKind::kDrag:
      return u"从" + PointText(step.from) + u" 拖到" + PointText(step.to);
    case InputKind::kWheel:
      return u"滚轮" + std::u16string(step.count < 0 ? u"向下" : u"向上") +
             DecimalText(step.count < 0 ? -step.count : step.count) + u"格";
    case InputKind::kKeys:
      return u"按 " + ChordText(step.keys);
    case InputKind::kType:
      return u"输入“" + step.text + u"”";
    case InputKind::kWait:
      return u"等" + DecimalText(step.time.count()) + u"毫秒";
    case InputKind::kWaitWindow:
      return u"等窗口“" + step.text + u"”出现，最多" +
             DecimalText(std::chrono::duration_cast<std::chrono::seconds>(step.time).count()) + u"秒";
    case InputKind::kRelative:
      return u"以后的坐标从窗口“" + step.text + u"”的内部左上角算起";
    case InputKind::kAbsolute:
      return u"以后的坐标从屏幕左上角算起";
    case InputKind::kLoop:
      break;
  }
  return u"重复" + DecimalText(step.count) + u"次：";
}

void Describe(const std::vector<InputStep>& steps, const std::u16string& indent, std::vector<InputStepText>& texts) {
  for (const InputStep& step : steps) {
    texts.push_back({step.line, indent + TextOf(step)});
    Describe(step.body, indent + u"　　", texts);
  }
}

}  // namespace

InputScriptError::InputScriptError(std::size_t line, std::u16string_view word, std::u16string_view what)
    : ExplainedError(
          "line " + std::to_string(line) + " is no action" + (word.empty() ? "" : ": " + Encode(Encoding::kUtf8, word)),
          u"第" + DecimalText(line) + u"行" + (word.empty() ? u"" : u"的“" + std::u16string(word) + u"”") +
              u"看不懂：" + std::u16string(what) + u"。\n什么也没有做。") {}

std::vector<InputStep> ParseInputScript(std::u16string_view text) {
  // The loops that are open, the outermost first; the first is the whole.
  std::vector<InputStep> open(1);
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    std::u16string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    line = line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line;
    // What is typed may end in blanks.
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.empty() || line.starts_with(u'#') || line.starts_with(u"//")) {
      continue;
    }
    Words words(line, number);
    const std::u16string_view word = words.Next();
    if (word == kEnd) {
      words.ExpectEnd();
      if (open.size() == 1) {
        words.Fail(word, u"前面没有“循环”");
      }
      InputStep loop = std::move(open.back());
      open.pop_back();
      open.back().body.push_back(std::move(loop));
      continue;
    }
    const auto* const verb = std::ranges::find(kVerbs, word, &Verb::word);
    InputStep step{.kind = InputKind::kKeys, .line = number};
    if (verb != kVerbs.end()) {
      step.kind = verb->kind;
      TakeArguments(words, step);
      words.ExpectEnd();
    } else if (IsBareChord(Trimmed(line))) {
      step.keys = *ParseChord(Trimmed(line));
    } else {
      words.Fail(word, u"不是动作");
    }
    if (step.kind == InputKind::kLoop) {
      if (open.size() > kDeepestLoop) {
        words.Fail(word, u"循环套得太深");
      }
      open.push_back(std::move(step));
    } else {
      open.back().body.push_back(std::move(step));
    }
  }
  if (open.size() > 1) {
    throw InputScriptError(open.back().line, u"循环", u"后面没有“结束”");
  }
  return std::move(open.front().body);
}

std::vector<InputStepText> DescribeSteps(const std::vector<InputStep>& steps) {
  std::vector<InputStepText> texts;
  Describe(steps, u"", texts);
  return texts;
}

}  // namespace scrivanta
