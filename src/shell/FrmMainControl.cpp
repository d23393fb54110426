#include "shell/FrmMainControl.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace scrivanta {

namespace {

LONG Clip(std::size_t position) {
  return static_cast<LONG>(std::min<std::size_t>(position, std::numeric_limits<LONG>::max()));
}

// The control loads the whole in time linear in its length, and needs for every line break that comes or goes a time
// that grows with the square of their number. The constant is measured.
bool IsFasterAsWhole(std::size_t changedBreaks, std::size_t breaks, std::size_t length) {
  constexpr double kUnitsLoadedInTheTime = 1e-5;
  const auto count = static_cast<double>(breaks);
  return static_cast<double>(changedBreaks) * count * count * kUnitsLoadedInTheTime > static_cast<double>(length);
}

std::size_t BreaksIn(std::u16string_view text) {
  return static_cast<std::size_t>(std::ranges::count(text, u'\r'));
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

void FrmMainControl::Replace(const ControlEdit& edit) {
  const std::size_t changedBreaks = BreaksIn(edit.removed) + BreaksIn(edit.inserted);
  if (!hasFormatting_ && IsFasterAsWhole(changedBreaks, box_.LineCount(), Length())) {
    ReplaceWhole(edit);
    return;
  }
  const QuietRichEdit quiet(box_);
  box_.Select(ToPlatform(edit.removedRange()));
  box_.ReplaceSelection(edit.inserted);
}

void FrmMainControl::ReplaceWhole(const ControlEdit& edit) {
  std::u16string text = box_.Text();
  text.replace(edit.start.value, edit.removed.size(), edit.inserted);
  const POINT scrolledTo = box_.ScrollPosition();
  const QuietRichEdit quiet(box_);
  box_.LoadText(text);
  box_.Select(ToPlatform({edit.insertedRange().end(), 0}));
  box_.SetScrollPosition(scrolledTo);
}

RichText FrmMainControl::Capture() const {
  return hasFormatting_ ? std::make_shared<const std::string>(box_.Rtf()) : nullptr;
}

void FrmMainControl::Rebuild(const RichText& richText, std::u16string_view documentText) {
  const POINT scrolledTo = box_.ScrollPosition();
  const QuietRichEdit quiet(box_);
  if (richText) {
    box_.LoadRtf(*richText);
  } else {
    box_.LoadText(ToControlText(documentText));
  }
  hasFormatting_ = richText != nullptr;
  box_.SetScrollPosition(scrolledTo);
}

void FrmMainControl::Select(ControlRange range) {
  const DWORD eventMask = box_.EventMask();
  box_.SetEventMask(0);
  box_.Select(ToPlatform(range));
  box_.ScrollToCaret();
  box_.SetEventMask(eventMask);
}

void FrmMainControl::LoadText(std::u16string_view text) {
  const QuietRichEdit quiet(box_);
  // A lone CR before a CR LF would come out as a blank.
  box_.LoadText(ToControlText(text));
  box_.Select({0, 0});
  hasFormatting_ = false;
}

bool FrmMainControl::LoadRtf(std::string_view bytes) {
  const QuietRichEdit quiet(box_);
  hasFormatting_ = true;
  const bool isRichText = box_.LoadRtf(bytes);
  box_.Select({0, 0});
  return isRichText;
}

}  // namespace scrivanta
