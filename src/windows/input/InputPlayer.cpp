#include "windows/input/InputPlayer.h"

#include <algorithm>
#include <cstdlib>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kStep{10};      // between two looks at whether it is to stop
constexpr milliseconds kHoldTime{20};  // of a button while the pointer is dragged
constexpr int kDragSteps = 8;
constexpr milliseconds kArrival{300};          // of the last keys, before another window may come to the front
constexpr milliseconds kActivationTime{2000};  // longest until a window is in front

}  // namespace

InputPlayError::InputPlayError(std::size_t line, std::u16string_view caption, std::u16string_view what)
    : ExplainedError("line " + std::to_string(line) + " cannot be played",
                     u"第" + DecimalText(line) + u"行停下了，前面的已经做了。\n" + std::u16string(what) + u"：" +
                         std::u16string(caption)) {}

InputPlayer::~InputPlayer() {
  LetGoButton();
  while (!held_.empty()) {
    LetGo(held_.back());
  }
}

void InputPlayer::Play(const std::vector<InputStep>& steps, milliseconds delay) {
  Wait(delay);
  PlayAll(steps);
  Wait(kArrival);
}

void InputPlayer::PlayAll(const std::vector<InputStep>& steps) {
  for (const InputStep& step : steps) {
    progress_.Report(played_, 0);
    if (step.kind == InputKind::kLoop) {
      for (long long round = 0; round < step.count; ++round) {
        progress_.Report(played_, 0);
        PlayAll(step.body);
      }
    } else {
      PlayOne(step);
      ++played_;
      Wait(pause_);
    }
  }
}

void InputPlayer::PlayOne(const InputStep& step) {
  switch (step.kind) {
    case InputKind::kActivate:
      Activate(step);
      return;
    case InputKind::kMove:
      MoveTo(step.from, step.line);
      return;
    case InputKind::kClick:
      Click(step, 1);
      return;
    case InputKind::kDoubleClick:
      Click(step, 2);
      return;
    case InputKind::kDrag:
      MoveTo(step.from, step.line);
      HoldButton(MouseButton::kLeft);
      Wait(kHoldTime);
      // On the way, as a hand does it: what is dragged is asked about places between.
      for (int part = 1; part <= kDragSteps; ++part) {
        const auto between = [part](auto from, auto to) { return from + (to - from) * part / kDragSteps; };
        MoveTo(ScreenPoint{between(step.from->x, step.to->x), between(step.from->y, step.to->y)}, step.line);
        Wait(kStep);
      }
      LetGoButton();
      return;
    case InputKind::kWheel:
      Turn(step.count);
      return;
    case InputKind::kKeys:
      PressKeys(step.keys);
      return;
    case InputKind::kType:
      for (const char16_t c : step.text) {
        device_.Character(c);
        progress_.Report(played_, 0);
      }
      return;
    case InputKind::kWait:
      Wait(step.time);
      return;
    case InputKind::kWaitWindow:
      if (!WaitForWindow(step)) {
        throw InputPlayError(step.line, step.text, u"等了这么久，没有出现这个标题的窗口");
      }
      return;
    case InputKind::kRelative:
      CornerOf(step.text, step.line);
      relativeTo_ = step.text;
      return;
    case InputKind::kAbsolute:
      relativeTo_.reset();
      return;
    case InputKind::kLoop:
      return;
  }
}

void InputPlayer::Click(const InputStep& step, int times) {
  MoveTo(step.from, step.line);
  for (int i = 0; i < times; ++i) {
    HoldButton(step.button);
    LetGoButton();
  }
}

void InputPlayer::Activate(const InputStep& step) {
  for (milliseconds waited{0};; waited += kStep) {
    const Activation activation = device_.Activate(step.text);
    if (activation == Activation::kInFront) {
      return;
    }
    if (activation == Activation::kNoWindow) {
      throw InputPlayError(step.line, step.text, u"没有这个标题的窗口");
    }
    if (waited >= kActivationTime) {
      throw InputPlayError(step.line, step.text, u"窗口没有到前面来");
    }
    Wait(kStep);
  }
}

void InputPlayer::Turn(long long notches) {
  for (long long turned = 0; turned < std::abs(notches); ++turned) {
    device_.Wheel(notches > 0);
    progress_.Report(played_, 0);
  }
}

void InputPlayer::PressKeys(const std::vector<KeyCode>& keys) {
  for (const KeyCode key : keys) {
    Hold(key);
  }
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    LetGo(*key);
  }
}

void InputPlayer::Hold(KeyCode key) {
  held_.push_back(key);
  device_.Key(key, true);
}

void InputPlayer::LetGo(KeyCode key) {
  std::erase(held_, key);
  device_.Key(key, false);
}

void InputPlayer::HoldButton(MouseButton button) {
  heldButton_ = button;
  device_.Button(button, true);
}

void InputPlayer::LetGoButton() {
  if (heldButton_) {
    device_.Button(*heldButton_, false);
    heldButton_.reset();
  }
}

ScreenPoint InputPlayer::CornerOf(const std::u16string& caption, std::size_t line) {
  const std::optional<ScreenPoint> corner = device_.ClientCorner(caption);
  if (!corner) {
    throw InputPlayError(line, caption, u"没有这个标题的窗口，或者它最小化了");
  }
  return *corner;
}

// The window may have been moved since.
void InputPlayer::MoveTo(const std::optional<ScreenPoint>& point, std::size_t line) {
  if (point) {
    const ScreenPoint corner = relativeTo_ ? CornerOf(*relativeTo_, line) : ScreenPoint();
    device_.MoveTo({corner.x + point->x, corner.y + point->y});
  }
}

void InputPlayer::Wait(milliseconds time) {
  while (time.count() > 0) {
    const milliseconds part = std::min(time, kStep);
    device_.Sleep(part);
    time -= part;
    progress_.Report(played_, 0);
  }
}

bool InputPlayer::WaitForWindow(const InputStep& step) {
  for (milliseconds waited{0}; !device_.HasWindow(step.text); waited += kStep) {
    if (waited >= step.time) {
      return false;
    }
    Wait(kStep);
  }
  return true;
}

}  // namespace scrivanta
