#include "shell/window/FrmMainControl.h"

#include <algorithm>
#include <limits>
#include <map>
#include <ranges>
#include <utility>

#include "shell/window/FrmMainControls.h"
#include "text/ExplainedError.h"
#include "text/Progress.h"

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
  constexpr double kOfFormat = 400;
  const auto count = static_cast<double>(breaks);
  double time = 0;
  for (const ControlEdit& edit : edits) {
    const auto going = static_cast<double>(BreaksIn(edit.removed));
    const auto coming = static_cast<double>(BreaksIn(edit.inserted));
    time += (going + coming / 10) * count * count * kOfBreakPerBreakSquared;
    time += count * kOfEditPerBreak + static_cast<double>(edit.inserted.size());
    time += edit.insertedFormats ? static_cast<double>(edit.insertedFormats->runs.size()) * kOfFormat : 0;
  }
  return time > static_cast<double>(length) + kOfCreation;
}

// What formats are to the control: it is given a text that has them, and asked.
class SampleFormats {
 public:
  explicit SampleFormats(RichEdit& box) : fresh_(box, RichTextBox0) {}

  CHARFORMAT2W OfCharacters(const SharedFormat& format) {
    const auto [at, isNew] = characters_.try_emplace(format);
    if (isNew) {
      Show({{{1, format}}, {}});
      at->second = fresh_.box().SelectionFormat();
      at->second.dwMask &= CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_UNDERLINETYPE | CFM_STRIKEOUT | CFM_PROTECTED |
                           CFM_HIDDEN | CFM_COLOR | CFM_BACKCOLOR | CFM_FACE | CFM_CHARSET | CFM_SIZE | CFM_OFFSET |
                           CFM_SUBSCRIPT | CFM_LCID | CFM_ALLCAPS | CFM_SMALLCAPS;
    }
    return at->second;
  }

  PARAFORMAT2 OfParagraph(const SharedFormat& format) {
    const auto [at, isNew] = paragraphs_.try_emplace(format);
    if (isNew) {
      Show({{}, {format}});
      at->second = fresh_.box().SelectionParagraph();
    }
    return at->second;
  }

 private:
  void Show(TextFormats formats) {
    NoProgress progress;
    fresh_.box().LoadRtf(FormattedText(u"x", std::move(formats)).ToRtf().Whole(), progress);
    fresh_.box().Select({0, 1});
  }

  FreshRichEdit fresh_;
  std::map<SharedFormat, CHARFORMAT2W> characters_;
  std::map<SharedFormat, PARAFORMAT2> paragraphs_;
};

// The formats of what the edit has put in, or of what it gives other ones.
void ApplyFormats(RichEdit& box, const ControlEdit& edit, SampleFormats& samples) {
  std::size_t at = edit.start.value;
  for (const FormatRun& run : edit.insertedFormats->runs) {
    box.Select(FrmMainControl::ToPlatform({{at}, run.length}));
    box.SetSelectionFormat(samples.OfCharacters(run.format));
    at += run.length;
  }
  const std::u16string text = box.Text(FrmMainControl::ToPlatform({edit.start, at - edit.start.value}));
  std::u16string_view rest = text;
  at = edit.start.value;
  for (const SharedFormat& paragraph : edit.insertedFormats->paragraphs) {
    if (rest.empty()) {
      break;
    }
    const std::size_t length = std::min(rest.find(u'\r'), rest.size() - 1) + 1;
    box.Select(FrmMainControl::ToPlatform({{at}, length}));
    box.SetSelectionParagraph(samples.OfParagraph(paragraph));
    at += length;
    rest.remove_prefix(length);
  }
  box.Select(FrmMainControl::ToPlatform({{at}, 0}));
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
  if (IsFasterAsWhole(edits, box_.LineCount(), Length())) {
    if (!hasFormatting_) {
      ReplaceWhole(edits);
      return;
    }
    if (ReplaceWholeFormatted(edits)) {
      return;
    }
  }
  const QuietRichEdit quiet(box_);
  ReplaceEach(edits);
}

// False, and nothing is done, when the formats cannot be taken apart.
bool FrmMainControl::ReplaceWholeFormatted(std::span<const ControlEdit> edits) {
  const std::optional<std::vector<ControlRange>> places = PlacesBeforeAll(edits);
  const std::optional<FormattedText> before = places ? ReadFormatted({{0}, Length()}) : std::nullopt;
  if (!before) {
    return false;
  }
  std::vector<FormattedChange> changes;
  for (std::size_t i = 0; i < edits.size(); ++i) {
    const auto [start, length] = (*places)[i];
    const std::u16string_view text =
        edits[i].IsFormatting() ? std::u16string_view(before->text()).substr(start.value, length) : edits[i].inserted;
    changes.push_back({start.value, length, text, edits[i].insertedFormats});
  }
  std::ranges::sort(changes, {}, &FormattedChange::start);
  const POINT scrolledTo = box_.ScrollPosition();
  return ShowFormatted(before->Changed(changes), [&](RichEdit& box) { box.SetScrollPosition(scrolledTo); });
}

// False, and nothing is done, when the control does not take the text as it is.
bool FrmMainControl::ShowFormatted(const FormattedText& text, const ShowPlace& showPlace) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadRtfByLines(text.ToRtf(), work->progress());
  if (fresh.box().Text() != text.text()) {
    return false;
  }
  showPlace(fresh.box());
  Show(fresh, true);
  return true;
}

void FrmMainControl::ReplaceEach(std::span<const ControlEdit> edits) {
  std::optional<SampleFormats> samples;
  for (const ControlEdit& edit : edits) {
    if (!edit.IsFormatting()) {
      box_.Select(ToPlatform(edit.removedRange()));
      box_.ReplaceSelection(edit.inserted);
    }
    if (edit.insertedFormats) {
      ApplyFormats(box_, edit, samples ? *samples : samples.emplace(box_));
    }
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

std::optional<FormattedText> FrmMainControl::Formatted(ControlRange range) const {
  return hasFormatting_ ? ReadFormatted(range) : std::nullopt;
}

// A control may leave out the end of the line before the last one when that is empty, or not selected.
std::optional<FormattedText> FrmMainControl::ReadFormatted(ControlRange range) const {
  const std::u16string text = Read(range);
  std::string rtf;
  try {
    rtf = range.length == Length() ? box_.Rtf() : box_.RtfOf(ToPlatform(range));
  } catch (const ExplainedError&) {
    return std::nullopt;  // there is a picture
  }
  std::optional<FormattedText> formatted = FormattedText::Read(rtf);
  if (formatted && formatted->text() + u'\r' == text) {
    TextFormats formats = formatted->formats();
    if (!formats.runs.empty()) {
      ++formats.runs.back().length;
    }
    formats.paragraphs.push_back(formats.paragraphs.back());
    formatted = FormattedText(text, std::move(formats));
  }
  return formatted && formatted->text() == text ? std::move(formatted) : std::nullopt;
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
  parts_ = KeptParts();
  parts_.LeaveAlone(text);
}

void FrmMainControl::LoadText(std::u16string_view text) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  fresh.box().LoadText(ToControlText(text), work->progress());
  fresh.box().Select({0, 0});
  Show(fresh, false);
}

bool FrmMainControl::LoadRtfDocument(std::string_view bytes) {
  KeptParts parts;
  if (!IsRichText(bytes) || !ShowRtf(parts.TakeOutDocument(bytes))) {
    return false;
  }
  parts_ = std::move(parts);
  return true;
}

bool FrmMainControl::ReloadRtfDocument(std::string_view bytes) {
  const KeptParts::Head before = parts_.head();
  if (IsRichText(bytes) && ShowRtf(parts_.TakeOutDocument(bytes))) {
    return true;
  }
  parts_.SetHead(before);
  return false;
}

bool FrmMainControl::LoadRtf(std::string_view bytes) {
  return IsRichText(bytes) && ShowRtf(parts_.TakeOut(bytes));
}

bool FrmMainControl::InsertRtf(std::string_view bytes) {
  hasFormatting_ = true;
  return box_.ReplaceSelectionByRtf(parts_.TakeOut(bytes));
}

bool FrmMainControl::ShowRtf(std::string_view controlRtf) {
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  if (!fresh.box().LoadRtf(controlRtf, work->progress())) {
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

bool FrmMainControl::Rearrange(const NewText& after) {
  const std::u16string before = box_.Text();
  const LONG top = box_.FirstVisible();
  const LONG topPlace = box_.PlaceOf(top).y;
  const LONG scrolledAside = box_.ScrollPosition().x;
  const LONG newTop = Clip(PlaceAfter(after.pieces, before, static_cast<std::size_t>(top)));
  const LONG newCaret = Clip(PlaceAfter(after.pieces, before, Selection().end().value));
  return PutTogether(after, [&](RichEdit& box) {
    box.Select({newCaret, newCaret});
    const LONG toTop = box.PlaceOf(box.LineStart(newTop)).y - topPlace;
    box.SetScrollPosition({scrolledAside, box.ScrollPosition().y + toTop});
  });
}

bool FrmMainControl::RearrangePart(const NewText& after) {
  const POINT scrolledTo = box_.ScrollPosition();
  const LONG caret = Clip(after.part.start.value + after.text.size());
  return PutTogether(after, [&](RichEdit& box) {
    box.SetScrollPosition(scrolledTo);
    box.Select({caret, caret});
  });
}

// From the last one to the first, so that none moves the place of another.
std::vector<ControlEdit> FrmMainControl::EditsOf(const NewText& after, std::u16string_view before) {
  const std::optional<FormatFinder> finder = after.before ? std::optional<FormatFinder>(*after.before) : std::nullopt;
  std::vector<ControlEdit> edits;
  for (const TextChange& change : ChangesOf(InOrder(after.pieces), after.part.length) | std::views::reverse) {
    ControlEdit edit{{after.part.start.value + change.oldStart},
                     std::u16string(before.substr(change.oldStart, change.oldLength)),
                     std::u16string(after.text.substr(change.newStart, change.newLength))};
    if (finder && change.oldLength > 0) {
      edit.removedFormats = std::make_shared<const TextFormats>(finder->Of(change.oldStart, change.oldLength));
    }
    edits.push_back(std::move(edit));
  }
  return edits;
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
  std::vector<ControlEdit> edits = EditsOf(after, Read(after.part));
  for (ControlEdit& edit : edits) {
    // Units that others take the place of one by one, as capitals do, have their formats.
    if (edit.removed.size() == edit.inserted.size() && edit.removedFormats && edit.removedFormats->runs.size() > 1) {
      edit.insertedFormats = edit.removedFormats;
    }
  }
  if (IsFasterAsWhole(edits, box_.LineCount(), Length()) || TouchesTable(box_.Text(), edits)) {
    return false;
  }
  const QuietRichEdit quiet(box_);
  ReplaceEach(edits);
  showPlace(box_);
  return true;
}

// False, and nothing is done, when the rich text holds what cannot be taken apart.
bool FrmMainControl::LoadRearranged(const NewText& after, const ShowPlace& showPlace) {
  const bool isWhole = after.part.length == Length();
  const std::optional<FormattedText> ofWhole = isWhole ? std::nullopt : ReadFormatted({{0}, Length()});
  const std::optional<FormattedText>& before = isWhole ? after.before : ofWhole;
  if (!before) {
    return false;
  }
  TextPieces pieces{{0, after.part.start.value, true}};
  for (TextPiece piece : after.pieces) {
    piece.from += after.part.start.value;
    pieces.push_back(piece);
  }
  pieces.push_back({after.part.end().value, before->text().size() - after.part.end().value, true});
  return ShowFormatted(before->Rearranged(pieces, WholeText(after)), showPlace);
}

std::optional<std::u16string> FrmMainControl::TextOfRtf(std::string_view bytes) {
  if (!IsRichText(bytes)) {
    return std::nullopt;
  }
  const std::unique_ptr<BusyWork> work = host_.startWork();
  FreshRichEdit fresh(box_, RichTextBox0);
  KeptParts parts;
  if (!fresh.box().LoadRtf(parts.TakeOut(bytes), work->progress())) {
    return std::nullopt;
  }
  return parts.WithoutSigns(ToDocumentText(fresh.box().Text()));
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
