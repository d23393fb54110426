#include "windows/input/SendInputDialog.h"

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "windows/ScriptLine.h"

namespace scrivanta {

namespace {

using std::chrono::milliseconds;

constexpr std::u16string_view kDelay = u"SendInputDelay";
constexpr std::u16string_view kPause = u"SendInputPause";

constexpr long long kSecond = 1000;  // in milliseconds

// Of a whole number of these units. Throws for what is none.
milliseconds TimeOf(std::u16string_view text, long long unit, std::u16string_view name) {
  constexpr long long kLongest = 3600 * kSecond;
  const std::optional<long long> number = LiteralNumber(TrimSpaces(text));
  if (!number || *number < 0 || *number > kLongest / unit) {
    throw ExplainedError("no time",
                         u"“" + std::u16string(name) + u"”要写0到" + DecimalText(kLongest / unit) + u"的整数。");
  }
  return milliseconds(*number * unit);
}

// Passes on what the work says, and the key that stops it.
class StoppableProgress final : public Progress {
 public:
  StoppableProgress(Progress& progress, const StopKey& stopKey) : progress_(progress), stopKey_(stopKey) {}

  void Report(std::uint64_t done, std::uint64_t total) override {
    if (stopKey_.IsPressed()) {
      throw Interrupted();
    }
    progress_.Report(done, total);
  }

 private:
  Progress& progress_;
  const StopKey& stopKey_;
};

// The window comes back however the playing ends.
class Aside {
 public:
  explicit Aside(SendInputView& view) : view_(view) { view_.StepAside(true); }
  Aside(const Aside&) = delete;
  Aside& operator=(const Aside&) = delete;
  ~Aside() { view_.StepAside(false); }

 private:
  SendInputView& view_;
};

}  // namespace

void SendInputDialog::Open(SendInputView& view) {
  std::u16string script = workbench_.editor().SelectedText();
  if (script.empty()) {
    script = workbench_.editor().Text();
  }
  const auto kept = [this](std::u16string_view key, std::u16string_view otherwise) {
    const std::u16string value = workbench_.settings().Get(key);
    return value.empty() ? std::u16string(otherwise) : value;
  };
  view.ShowForm({.script = std::move(script), .delay = kept(kDelay, u"3"), .pause = kept(kPause, u"50")});
}

std::vector<InputStep> SendInputDialog::Parse(SendInputView& view) {
  view.ShowSteps({});
  std::vector<InputStep> steps = ParseInputScript(view.Form().script);
  view.ShowSteps(DescribeSteps(steps));
  return steps;
}

void SendInputDialog::Check(SendInputView& view) {
  const std::vector<InputStep> steps = Parse(view);
  view.ShowRemark(steps.empty() ? u"没有可以做的" : u"没有错误，可以播放");
}

void SendInputDialog::Play(SendInputView& view) {
  const SendInputForm form = view.Form();
  const std::vector<InputStep> steps = Parse(view);
  if (steps.empty()) {
    view.ShowRemark(u"没有可以做的");
    return;
  }
  const milliseconds delay = TimeOf(form.delay, kSecond, u"先等");
  const milliseconds pause = TimeOf(form.pause, 1, u"每步之后停");
  workbench_.settings().Save(kDelay, form.delay);
  workbench_.settings().Save(kPause, form.pause);
  std::size_t played = 0;
  bool isStopped = false;
  {
    const Aside aside(view);
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    const std::unique_ptr<StopKey> stopKey = makeStopKey_();
    StoppableProgress progress(work->progress(), *stopKey);
    InputPlayer player(device_, pause, progress);
    try {
      player.Play(steps, delay);
    } catch (const Interrupted&) {
      isStopped = true;
    }
    played = player.played();
  }
  view.ShowRemark((isStopped ? u"中途停止，做了" : u"做完了，共") + DecimalText(played) + u"步");
}

void SendInputDialog::PutIntoDocument(SendInputView& view) {
  std::u16string lines;
  for (const InputStepText& step : DescribeSteps(Parse(view))) {
    lines += TableLine({DecimalText(step.line), step.text});
  }
  workbench_.editor().ReplaceSelection(lines);
}

}  // namespace scrivanta
