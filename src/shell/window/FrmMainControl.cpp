#include "shell/window/FrmMainControl.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "shell/window/FrmMainControls.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

LONG Clip(std::size_t position) {
  return static_cast<LONG>(std::min<std::size_t>(position, std::numeric_limits<LONG>::max()));
}

std::size_t BreaksIn(std::u16string_view text) {
  return static_cast<std::size_t>(std::ranges::count(text, u'\r'));
}

// Whether a new control is filled with the whole before the control there is has made the edits. That one needs for an
// edit a time that grows with the number of line breaks, for a break that goes the square of it, and for one that comes
// a tenth of that. The constants are measured, in the time of loading a unit.
bool IsFasterAsWhole(std::span<const ControlEdit> edits, std::size_t breaks, std::size_t length) {
  constexpr double kOfBreakPerBreakSquared = 7e-6;
  constexpr double kOfEditPerBreak = 0.12;
  constexpr double kOfCreation = 4000;
  const auto count = static_cast<double>(breaks);
  double time = 0;
  for (const ControlEdit& edit : edits) {
    const auto going = static_cast<double>(BreaksIn(edit.removed));
    const auto coming = static_cast<double>(BreaksIn(edit.inserted));
    time += (going + coming / 10) * count * count * kOfBreakPerBreakSquared;
    time += count * kOfEditPerBreak + static_cast<double>(edit.inserted.size());
  }
  return time > static_cast<double>(length) + kOfCreation;
}

}  // namespace

CHARRANGE FrmMainControl::ToPlatform(ControlRange range) {
  return {Clip(range.start.value), Clip(range.end().value)};
}

ControlRange FrmMainControl::Selection() const {
  const CHARRANGE range = box_.Selection();
  const auto start = static_cast<std::size_t>(range.cpMin);
  return {{start}, static_cast<std::size_t>(range.cpMax) - start};
}

std::u16string FrmMainControl::Read(ControlRange range) const {
  const std::size_t length = Length();
  const std::size_t start = std::min(range.start.value, length);
  const std::size_t end = std::min(range.end().value, length);
  return start == 0 && end == length ? box_.Text() : box_.Text({Clip(start), Clip(end)});
}

void FrmMainControl::Replace(std::span<const ControlEdit> edits) {
  if (edits.empty()) {
    return;
  }
  if (!hasFormatting_ && IsFasterAsWhole(edits, box_.LineCount(), Length())) {
    ReplaceWhole(edits);
    return;
  }
  const QuietRichEdit quiet(box_);
  for (const ControlEdit& edit : edits) {
    box_.Select(ToPlatform(edit.removedRange()));
    box_.ReplaceSelection(edit.inserted);
  }
}

void FrmMainControl::ReplaceWhole(std::span<const ControlEdit> edits) {
  TextMirror text;
  text.Replace({}, box_.Text());
  for (const ControlEdit& edit : edits) {
    text.Replace(edit.removedRange(), edit.inserted);
  }
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadText(text.ControlText({{0}, text.length()}), work->progress());
  fresh.box().Select(ToPlatform({edits.back().insertedRange().end(), 0}));
  fresh.box().SetScrollPosition(box_.ScrollPosition());
  Show(fresh, false);
}

RichText FrmMainControl::Capture() const {
  return hasFormatting_ ? std::make_shared<const std::string>(box_.Rtf()) : nullptr;
}

void FrmMainControl::Rebuild(const RichText& richText, std::u16string_view documentText) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  if (richText) {
    if (!fresh.box().LoadRtf(*richText, work->progress())) {
      throw ExplainedError("the rich text cannot be put back", u"带格式的文本没有放回，文档没有改变。");
    }
  } else {
    fresh.box().LoadText(ToControlText(documentText), work->progress());
  }
  fresh.box().SetScrollPosition(box_.ScrollPosition());
  Show(fresh, richText != nullptr);
}

void FrmMainControl::Select(ControlRange range) {
  const DWORD eventMask = box_.EventMask();
  box_.SetEventMask(0);
  box_.Select(ToPlatform(range));
  box_.ScrollToCaret();
  box_.SetEventMask(eventMask);
}

void FrmMainControl::LoadText(std::u16string_view text) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadText(ToControlText(text), work->progress());
  fresh.box().Select({0, 0});
  Show(fresh, false);
}

bool FrmMainControl::LoadRtf(std::string_view bytes) {
  if (!IsRichText(bytes)) {
    return false;
  }
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  if (!fresh.box().LoadRtf(bytes, work->progress())) {
    return false;
  }
  fresh.box().Select({0, 0});
  Show(fresh, true);
  return true;
}

void FrmMainControl::LoadRtf(const RtfByLines& rtf) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadRtfByLines(rtf, work->progress());
  fresh.box().Select({0, 0});
  Show(fresh, true);
}

std::optional<std::u16string> FrmMainControl::TextOfRtf(std::string_view bytes) {
  if (!IsRichText(bytes)) {
    return std::nullopt;
  }
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  return fresh.box().LoadRtf(bytes, work->progress()) ? std::optional(ToDocumentText(fresh.box().Text()))
                                                      : std::nullopt;
}

std::size_t FrmMainControl::CountLines(std::u16string_view controlText) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadText(controlText, work->progress());
  return fresh.box().LineCount();
}

bool FrmMainControl::IsRichText(std::string_view bytes) {
  return bytes.starts_with("{\\rtf");
}

// While the work goes on: who waits for its end meets the new control only.
void FrmMainControl::Show(FreshRichEdit& fresh, bool hasFormatting) {
  fresh.TakePlace();
  hasFormatting_ = hasFormatting;
  host_.onNewWindow();
}

}  // namespace scrivanta
