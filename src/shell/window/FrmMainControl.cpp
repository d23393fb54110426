#include "shell/window/FrmMainControl.h"

#include <algorithm>
#include <limits>
#include <ranges>
#include <utility>

#include "shell/window/FrmMainControls.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

LONG Clip(std::size_t position) {
  return static_cast<LONG>(std::min<std::size_t>(position, std::numeric_limits<LONG>::max()));
}

// In characters. Less is loaded before anybody could read.
constexpr std::size_t kLeastForFirstPage = 200'000;

// Whole lines, more than a screen shows.
std::u16string_view FirstPage(std::u16string_view text) {
  constexpr std::size_t kLongest = 16'384;
  constexpr std::size_t kMostLines = 150;
  std::size_t end = 0;
  for (std::size_t line = 0; line < kMostLines; ++line) {
    const std::size_t next = text.find(u"\r\n", end);
    if (next > kLongest) {
      break;
    }
    end = next + 2;
  }
  return text.substr(0, end == 0 ? kLongest : end);
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

// Whether an edit would change something in a row of a table, or beside it: controls do not live through that. A row
// stands between two marks; some controls have an LF behind the line break at each of its ends.
bool TouchesTable(std::u16string_view text, std::span<const ControlEdit> edits) {
  constexpr std::u16string_view kMarks = u"\n\xFFF9\xFFFB";
  if (text.find_first_of(kMarks) == std::u16string_view::npos) {
    return false;
  }
  return std::ranges::any_of(edits, [&](const ControlEdit& edit) {
    const std::u16string_view before = text.substr(0, edit.start.value);
    const auto marks =
        std::ranges::count_if(before, [&](char16_t unit) { return kMarks.find(unit) != std::u16string_view::npos; });
    const std::size_t begin = before.size() - std::min<std::size_t>(before.size(), 2);
    const std::size_t end = edit.removedRange().end().value + 2;
    return marks % 2 != 0 || text.substr(begin, end - begin).find_first_of(kMarks) != std::u16string_view::npos;
  });
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
  ReplaceEach(edits);
}

void FrmMainControl::ReplaceEach(std::span<const ControlEdit> edits) {
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

void FrmMainControl::LoadDocument(std::u16string_view text) {
  std::optional<FreshRichEdit> firstPage;
  if (text.size() > kLeastForFirstPage) {
    NoProgress progress;
    firstPage.emplace(box_, RichTextBox0);
    firstPage->box().LoadText(ToControlText(FirstPage(text)), progress);
    firstPage->ShowAbove();
  }
  LoadText(text);
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

bool FrmMainControl::Rearrange(const TextPieces& pieces, std::u16string_view controlText) {
  const std::u16string before = box_.Text();
  const LONG top = box_.FirstVisible();
  const LONG topPlace = box_.PlaceOf(top).y;
  const LONG scrolledAside = box_.ScrollPosition().x;
  const LONG newTop = Clip(PlaceAfter(pieces, before, static_cast<std::size_t>(top)));
  const LONG newCaret = Clip(PlaceAfter(pieces, before, Selection().end().value));
  return PutTogether({{{0}, before.size()}, pieces, controlText}, [&](RichEdit& box) {
    box.Select({newCaret, newCaret});
    const LONG toTop = box.PlaceOf(box.LineStart(newTop)).y - topPlace;
    box.SetScrollPosition({scrolledAside, box.ScrollPosition().y + toTop});
  });
}

bool FrmMainControl::RearrangePart(ControlRange part, const TextPieces& pieces, std::u16string_view controlText) {
  const POINT scrolledTo = box_.ScrollPosition();
  const LONG caret = Clip(part.start.value + controlText.size());
  return PutTogether({part, pieces, controlText}, [&](RichEdit& box) {
    box.SetScrollPosition(scrolledTo);
    box.Select({caret, caret});
  });
}

bool FrmMainControl::PutTogether(const NewText& after, const ShowPlace& showPlace) {
  if (hasFormatting_ && (ReplaceInPlace(after, showPlace) || LoadRearranged(after, showPlace))) {
    return true;
  }
  const bool hadFormatting = hasFormatting_;
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadText(WholeText(after), work->progress());
  showPlace(fresh.box());
  Show(fresh, false);
  return !hadFormatting;
}

std::u16string FrmMainControl::WholeText(const NewText& after) const {
  std::u16string text = box_.Text();
  text.replace(after.part.start.value, after.part.length, after.text);
  return text;
}

// Whatever there is beside the changes stays, pictures and tables too. False, and nothing is done, when lines have
// gone elsewhere, or when it would take longer than to load the whole.
bool FrmMainControl::ReplaceInPlace(const NewText& after, const ShowPlace& showPlace) {
  if (!KeepsOrder(after.pieces)) {
    return false;
  }
  std::vector<ControlEdit> edits;
  for (const TextChange& change : ChangesOf(after.pieces, after.part.length) | std::views::reverse) {
    const ControlPos start{after.part.start.value + change.oldStart};
    edits.push_back(
        {start, Read({start, change.oldLength}), std::u16string(after.text.substr(change.newStart, change.newLength))});
  }
  if (IsFasterAsWhole(edits, box_.LineCount(), Length()) || TouchesTable(box_.Text(), edits)) {
    return false;
  }
  const QuietRichEdit quiet(box_);
  ReplaceEach(edits);
  showPlace(box_);
  return true;
}

// Nothing when the rich text holds what cannot be taken apart. A control may leave out the end of the line before the
// last one when that is empty.
std::optional<FormattedText> FrmMainControl::Formatted() const {
  const std::u16string text = box_.Text();
  std::optional<FormattedText> formatted = FormattedText::Read(box_.Rtf());
  if (formatted && formatted->text() + u'\r' == text) {
    formatted = FormattedText(text, formatted->formats());
  }
  return formatted && formatted->text() == text ? std::move(formatted) : std::nullopt;
}

// False, and nothing is done, when the rich text holds what cannot be taken apart.
bool FrmMainControl::LoadRearranged(const NewText& after, const ShowPlace& showPlace) {
  const std::optional<FormattedText> before = Formatted();
  if (!before) {
    return false;
  }
  TextPieces pieces{{0, after.part.start.value, true}};
  for (TextPiece piece : after.pieces) {
    piece.from += after.part.start.value;
    pieces.push_back(piece);
  }
  pieces.push_back({after.part.end().value, before->text().size() - after.part.end().value, true});
  const std::u16string text = WholeText(after);
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadRtfByLines(before->Rearranged(pieces, text).ToRtf(), work->progress());
  if (fresh.box().Text() != text) {
    return false;
  }
  showPlace(fresh.box());
  Show(fresh, true);
  return true;
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
