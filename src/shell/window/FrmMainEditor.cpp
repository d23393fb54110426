#include "shell/window/FrmMainEditor.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "shell/window/FrmMainControls.h"
#include "text/ExplainedError.h"
#include "text/Surrogates.h"
#include "text/win/WideText.h"
#include "win/Clipboard.h"
#include "win/FontDialog.h"

namespace scrivanta {

namespace {

constexpr DWORD kBoxStyle =
    WS_VSCROLL | WS_HSCROLL | WS_BORDER | ES_MULTILINE | ES_AUTOHSCROLL | ES_AUTOVSCROLL | ES_NOHIDESEL | ES_WANTRETURN;
constexpr LONG kTwipsPerPoint = 20;

struct EffectBits {
  DWORD mask;
  DWORD effect;
};

EffectBits BitsOf(TextEffect effect) {
  switch (effect) {
    case TextEffect::kBold:
      return {CFM_BOLD, CFE_BOLD};
    case TextEffect::kItalic:
      return {CFM_ITALIC, CFE_ITALIC};
    case TextEffect::kUnderline:
      break;
  }
  return {CFM_UNDERLINE, CFE_UNDERLINE};
}

CHARFORMAT2W ToControl(const FontDescription& font) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_COLOR | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT | CFM_CHARSET;
  format.dwEffects = (font.bold ? CFE_BOLD : 0) | (font.italic ? CFE_ITALIC : 0) |
                     (font.underline ? CFE_UNDERLINE : 0) | (font.strikeThrough ? CFE_STRIKEOUT : 0);
  // Black is the system's colour for text, which is white when the user has chosen a dark scheme of high contrast.
  if (font.colour == 0) {
    format.dwEffects |= CFE_AUTOCOLOR;
  }
  format.crTextColor = font.colour;
  format.yHeight = std::lround(font.size * kTwipsPerPoint);
  format.bCharSet = GB2312_CHARSET;
  const std::size_t length = std::min<std::size_t>(font.name.size(), LF_FACESIZE - 1);
  std::copy_n(font.name.begin(), length, format.szFaceName);
  return format;
}

FontDescription ToDescription(const CHARFORMAT2W& format) {
  const auto has = [&format](DWORD effect) { return (format.dwEffects & effect) != 0; };
  return {.name = FromWide(format.szFaceName),
          .size = static_cast<double>(format.yHeight) / kTwipsPerPoint,
          .colour = has(CFE_AUTOCOLOR) ? 0 : format.crTextColor,
          .bold = has(CFE_BOLD),
          .italic = has(CFE_ITALIC),
          .underline = has(CFE_UNDERLINE),
          .strikeThrough = has(CFE_STRIKEOUT)};
}

// The mask of what differs.
DWORD DifferenceOf(const FontDescription& a, const FontDescription& b) {
  const auto mask = [](bool differs, DWORD bits) { return differs ? bits : 0; };
  return mask(a.name != b.name, CFM_FACE | CFM_CHARSET) | mask(a.size != b.size, CFM_SIZE) |
         mask(a.colour != b.colour, CFM_COLOR) | mask(a.bold != b.bold, CFM_BOLD) |
         mask(a.italic != b.italic, CFM_ITALIC) | mask(a.underline != b.underline, CFM_UNDERLINE) |
         mask(a.strikeThrough != b.strikeThrough, CFM_STRIKEOUT);
}

}  // namespace

void FrmMainEditor::Create(HWND parent) {
  box_.Create(parent, RichTextBox1, kBoxStyle | WS_VISIBLE | WS_TABSTOP);
  const CHARFORMAT2W format = ToControl({.name = u"宋体", .size = 10.5});
  box_.SetDefaultFormat(format);
  box_.SetFormatOfAll(format);
  box_.SetEventMask(ENM_CHANGE | ENM_SELCHANGE);
  history_.Reset(control_);
}

void FrmMainEditor::HandleChange() {
  history_.NoteChange(control_, std::chrono::steady_clock::now());
  listener_.onChange();
}

void FrmMainEditor::HandleSelection() {
  history_.NoteSelection(control_);
  listener_.onSelection();
}

void FrmMainEditor::ShowDocument(std::u16string_view text) {
  control_.LoadDocument(text);
  history_.Reset(control_);
}

bool FrmMainEditor::ShowRichDocument(std::string_view rtf) {
  if (!control_.LoadRtfDocument(rtf)) {
    return false;
  }
  history_.Reset(control_);
  return true;
}

void FrmMainEditor::Undo() {
  if (history_.Undo(control_)) {
    listener_.onChange();
  }
}

void FrmMainEditor::Redo() {
  if (history_.Redo(control_)) {
    listener_.onChange();
  }
}

// Of a selection of several lines the lines from one edge to the other.
std::optional<ScreenRect> FrmMainEditor::SelectionOnScreen() const {
  const CHARRANGE selection = box_.Selection();
  const POINT begin = box_.PlaceOf(selection.cpMin);
  const POINT end = box_.PlaceOf(selection.cpMax);
  RECT seen{};
  GetClientRect(box_.handle(), &seen);
  const LONG bottom = end.y + 2L * box_.TextHeight();  // and the line below it
  const RECT whole =
      begin.y == end.y ? RECT{begin.x, begin.y, end.x + 1, bottom} : RECT{0, begin.y, seen.right, bottom};
  RECT part{};
  if (IntersectRect(&part, &whole, &seen) == FALSE) {
    return std::nullopt;
  }
  MapWindowPoints(box_.handle(), nullptr, reinterpret_cast<POINT*>(&part), 2);
  return ScreenRect{part.left, part.top, part.right, part.bottom};
}

FrmMainEditor::LinesAtCaret FrmMainEditor::TwoLinesAtCaret() const {
  const ControlPos caret = control_.Selection().end();
  const std::size_t line = breaks().LineOf(caret);
  const ControlPos begin = breaks().LineStart(line == 0 ? 0 : line - 1);
  const std::size_t end =
      line + 1 < breaks().lineCount() ? breaks().LineStart(line + 1).value - 1 : breaks().controlLength();
  const TextRange range = breaks().ToText({begin, end - begin.value});
  return {history_.text().Text(range), breaks().ToText({caret, 0}).start.value - range.start.value};
}

void FrmMainEditor::MarkPart(std::optional<TextRange> part) {
  history_.Mark(part ? std::optional(breaks().ToControl(*part)) : std::nullopt);
}

std::optional<TextRange> FrmMainEditor::MarkedPart() const {
  const auto& part = history_.marked();
  return part ? std::optional(breaks().ToText(*part)) : std::nullopt;
}

std::size_t FrmMainEditor::CountDisplayLines(std::u16string_view text) {
  return text == Text() ? box_.LineCount() : control_.CountLines(ToControlText(text));
}

std::size_t FrmMainEditor::CaretDisplayLine() const {
  return box_.LineOf(box_.Selection().cpMax) + 1;
}

template <typename Load>
bool FrmMainEditor::Rebuild(Load load, std::function<void(bool isUndone)> onUndo) {
  const UndoCommand step(history_, control_);
  RichText before = control_.Capture();
  if (!load(before)) {
    return false;
  }
  history_.NoteRebuild(control_, std::move(before), control_.hasFormatting(), std::move(onUndo));
  listener_.onChange();
  return true;
}

void FrmMainEditor::ReplaceText(std::u16string_view text, std::function<void(bool isUndone)> onUndo) {
  Rebuild(
      [&](const RichText&) {
        control_.LoadText(text);
        return true;
      },
      std::move(onUndo));
}

bool FrmMainEditor::ReplaceByRtf(std::string_view rtf) {
  const auto other = std::make_shared<KeptParts::Head>(control_.parts().head());
  return Rebuild([&](const RichText&) { return control_.ReloadRtfDocument(rtf); },
                 [this, other](bool) {
                   KeptParts::Head head = control_.parts().head();
                   control_.SetHead(std::exchange(*other, std::move(head)));
                 });
}

void FrmMainEditor::RequireWritable() const {
  if (box_.IsReadOnly()) {
    throw ExplainedError("the document is read-only",
                         u"文档是以只读方式打开的，没有改动。\n另存为其他文件以后就可以改动。");
  }
}

void FrmMainEditor::SetText(std::u16string_view text) {
  RequireWritable();
  const ControlRange whole{{0}, history_.text().length()};
  const std::u16string before = history_.text().ControlText(whole);
  const std::u16string after = ToControlText(text);
  if (before != after) {  // else it is no step
    Rearrange(whole, before, after, &FrmMainControl::Rearrange);
  }
}

void FrmMainEditor::ReplaceSelection(std::u16string_view text) {
  RequireWritable();
  const ControlRange selection = control_.Selection();
  const std::u16string after = ToControlText(text);
  if (HasFormatting() && !selection.empty()) {
    Rearrange(selection, history_.text().ControlText(selection), after, &FrmMainControl::RearrangePart);
    box_.ScrollToCaret();
    return;
  }
  const UndoCommand step(history_, control_);
  const ControlEdit edit{selection.start, control_.Read(selection), after};
  control_.Replace({&edit, 1});
  box_.ScrollToCaret();
  history_.NoteChange(control_, std::chrono::steady_clock::now());
  listener_.onChange();
}

// One step, which keeps what it has changed; or, where formats cannot be taken apart, all of the rich text before.
void FrmMainEditor::Rearrange(ControlRange part, const std::u16string& before, const std::u16string& after,
                              bool (FrmMainControl::*rearrange)(const FrmMainControl::NewText&)) {
  const UndoCommand step(history_, control_);
  const TextPieces pieces = MatchTexts(before, after);
  const std::optional<FormattedText> formatted = control_.Formatted(part);
  RichText rich = formatted ? nullptr : control_.Capture();
  const FrmMainControl::NewText newText{part, pieces, after, formatted};
  const bool keepsFormats = (control_.*rearrange)(newText);
  if (formatted && keepsFormats) {
    history_.NoteEdits(control_, FrmMainControl::EditsOf(newText, before));
  } else {
    history_.NoteRebuild(control_, std::move(rich), control_.hasFormatting());
  }
  listener_.onChange();
  NoteFormats(keepsFormats);
}

void FrmMainEditor::NoteFormats(bool areKept) const {
  if (!areKept) {
    listener_.onFormatsLost();
  }
}

bool FrmMainEditor::SetRtf(std::string_view rtf) {
  RequireWritable();
  return Rebuild([&](const RichText&) { return control_.LoadRtf(rtf); });
}

void FrmMainEditor::SetRtf(const RtfByLines& rtf) {
  RequireWritable();
  Rebuild([&](const RichText&) {
    control_.LoadRtf(rtf);
    return true;
  });
}

bool FrmMainEditor::ReplaceSelectionByRtf(std::string_view rtf) {
  RequireWritable();
  if (!FrmMainControl::IsRichText(rtf)) {
    return false;
  }
  return Rebuild([&](const RichText& before) {
    const ControlRange selection = control_.Selection();
    if (ReplaceSelectionQuietly(rtf)) {
      return true;
    }
    control_.Rebuild(before, Text());
    control_.Select(selection);
    return false;
  });
}

bool FrmMainEditor::ReplaceSelectionQuietly(std::string_view rtf) {
  const QuietRichEdit quiet(box_);
  return control_.InsertRtf(rtf);
}

void FrmMainEditor::SetColours(std::span<const TextRange> ranges, const TextColours& colours) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR | CFM_BACKCOLOR;
  format.dwEffects = (colours.text ? 0 : CFE_AUTOCOLOR) | (colours.background ? 0 : CFE_AUTOBACKCOLOR);
  format.crTextColor = colours.text.value_or(0);
  format.crBackColor = colours.background.value_or(0);
  const CHARRANGE selection = box_.Selection();
  const POINT scrolledTo = box_.ScrollPosition();
  const QuietRichEdit quiet(box_);
  for (const TextRange& range : ranges) {
    box_.Select(FrmMainControl::ToPlatform(breaks().ToControl(range)));
    box_.SetSelectionFormat(format);
  }
  box_.Select(selection);
  box_.SetScrollPosition(scrolledTo);
  control_.NoteFormatting();
}

ScrollPosition FrmMainEditor::Scroll() const {
  const POINT position = box_.ScrollPosition();
  return {position.x, position.y};
}

void FrmMainEditor::SetScroll(ScrollPosition position) {
  box_.SetScrollPosition({position.x, position.y});
}

void FrmMainEditor::Cut() {
  RequireWritable();
  Copy();
  DeleteSelection();
}

// Not by the control, whose rich text need not hold the same characters.
void FrmMainEditor::Copy() {
  std::optional<std::string> rtf;
  try {
    rtf = control_.SelectedRtf();
  } catch (const ExplainedError&) {
    // The text is put there before this is told.
  }
  PutOnClipboard(box_.handle(), control_.parts().WithoutSigns(SelectedText()), rtf.value_or(""));
  if (!rtf) {
    throw ExplainedError("the edit control does not give the selected rich text as a whole",
                         u"选中的内容里有编辑框不能完整给出的部分（例如图片），剪贴板上只有文字，没有格式。\n"
                         u"文档没有改变。");
  }
}

void FrmMainEditor::DeleteSelection() {
  RequireWritable();
  box_.Send(WM_CLEAR);
}

void FrmMainEditor::SelectPairBeforeCaret() {
  const std::size_t caret = control_.Selection().start.value;
  if (caret >= 2) {
    SelectPairAt(caret - 2);
  }
}

void FrmMainEditor::SelectPairBehindCaret() {
  SelectPairAt(control_.Selection().start.value);
}

// The history is not told: for it the caret still stands beside the pair, as when a control erases both halves itself.
void FrmMainEditor::SelectPairAt(std::size_t start) {
  const ControlRange pair{{start}, 2};
  const std::u16string text = history_.text().ControlText(pair);
  const bool isPair = text.size() == 2 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]);
  if (isPair && !IsReadOnly() && !HasSelection()) {
    control_.Select(pair);
  }
}

void FrmMainEditor::Paste() {
  RequireWritable();
  // Not by the control, which drops pictures and the like, and has line breaks that are none of the text.
  const std::string rtf = RtfOnClipboard(box_.handle());
  if (FrmMainControl::IsRichText(rtf)) {
    const ControlRange selection = control_.Selection();
    if (std::optional<FormattedText> replaced = selection.empty() ? std::nullopt : FormatsOf(selection)) {
      history_.KnowFormats(selection.start, *std::move(replaced));
    }
    control_.InsertRtf(rtf);
  } else {
    box_.Send(WM_PASTE);
  }
}

bool FrmMainEditor::HasEffect(TextEffect effect) const {
  const EffectBits bits = BitsOf(effect);
  const CHARFORMAT2W format = box_.SelectionFormat();
  return (format.dwMask & bits.mask) != 0 && (format.dwEffects & bits.effect) != 0;
}

void FrmMainEditor::SetEffect(TextEffect effect, bool on) {
  RequireWritable();
  const EffectBits bits = BitsOf(effect);
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = bits.mask;
  format.dwEffects = on ? bits.effect : 0;
  ChangeFormats(control_.Selection(), [&] { box_.SetSelectionFormat(format); });
}

// Of a text with formats of its own that of its beginning.
FontDescription FrmMainEditor::Font() const {
  const bool isMixed = HasFormatting() && history_.text().length() > 0;
  return ToDescription(isMixed ? box_.FormatOf({0, 1}) : box_.DefaultFormat());
}

void FrmMainEditor::SetFont(const FontDescription& font) {
  RequireWritable();
  CHARFORMAT2W format = ToControl(font);
  format.dwMask = DifferenceOf(Font(), font);
  if (format.dwMask == 0) {
    return;
  }
  CHARFORMAT2W before = box_.DefaultFormat();
  before.dwMask = format.dwMask;
  if (HasFormatting()) {
    const auto setDefault = [this, before, format](bool isUndone) {
      box_.SetDefaultFormat(isUndone ? before : format);
    };
    setDefault(false);
    if (ChangeFormats({{0}, history_.text().length()}, [&] { box_.SetFormatOfAll(format); })) {
      history_.Attach(setDefault);
    }
    return;
  }
  const auto setAll = [this, before, format](bool isUndone) {
    box_.SetDefaultFormat(isUndone ? before : format);
    box_.SetFormatOfAll(isUndone ? before : format);
  };
  setAll(false);
  history_.NoteRebuild(control_, nullptr, true, setAll);
  listener_.onChange();
}

std::optional<FontDescription> FrmMainEditor::AskForFont(const FontDescription& preset) {
  constexpr double kTenths = 10;
  const std::optional<FontChoice> chosen =
      ShowFontDialog(GetActiveWindow(), {.name = preset.name,
                                         .tenthsOfPoint = static_cast<int>(std::lround(preset.size * kTenths)),
                                         .colour = preset.colour,
                                         .bold = preset.bold,
                                         .italic = preset.italic,
                                         .underline = preset.underline,
                                         .strikeThrough = preset.strikeThrough});
  if (!chosen) {
    return std::nullopt;
  }
  return FontDescription{.name = chosen->name,
                         .size = chosen->tenthsOfPoint / kTenths,
                         .colour = chosen->colour,
                         .bold = chosen->bold,
                         .italic = chosen->italic,
                         .underline = chosen->underline,
                         .strikeThrough = chosen->strikeThrough};
}

void FrmMainEditor::CopyFormat() {
  storedFormat_ = {box_.SelectionFormat(), box_.SelectionParagraph()};
}

void FrmMainEditor::PasteFormat() {
  if (!storedFormat_) {
    return;
  }
  RequireWritable();
  CHARFORMAT2W characters = storedFormat_->characters;
  characters.dwMask &= CFM_FACE | CFM_CHARSET | CFM_SIZE | CFM_COLOR | CFM_BOLD | CFM_ITALIC | CFM_STRIKEOUT |
                       CFM_UNDERLINE | CFM_OFFSET | CFM_PROTECTED;
  PARAFORMAT2 paragraphs = storedFormat_->paragraphs;
  paragraphs.dwMask &= PFM_ALIGNMENT | PFM_NUMBERING | PFM_OFFSET | PFM_RIGHTINDENT;
  const ControlRange selection = control_.Selection();
  const ControlPos begin = breaks().LineStart(breaks().LineOf(selection.start));
  const std::size_t next = breaks().LineOf(selection.end()) + 1;
  const ControlPos end = next < breaks().lineCount() ? breaks().LineStart(next) : ControlPos{breaks().controlLength()};
  ChangeFormats({begin, end.value - begin.value}, [&] {
    box_.SetSelectionFormat(characters);
    box_.SetSelectionParagraph(paragraphs);
  });
}

// A step of its own, unless nothing has changed or there is no text that it could have changed. Returns whether it is.
bool FrmMainEditor::ChangeFormats(ControlRange range, const std::function<void()>& change) {
  const UndoCommand step(history_, control_);
  const std::optional<FormattedText> before = FormatsOf(range);
  const bool isTakenApart = before || range.empty();
  const RichText rich = isTakenApart ? nullptr : control_.Capture();
  change();
  control_.NoteFormatting();
  const std::optional<FormattedText> after = before ? FormatsOf(range) : std::nullopt;
  bool isStep = !isTakenApart;
  if (after) {
    isStep = history_.NoteFormats(control_, range.start, before->formats(), after->formats());
  } else if (isStep) {
    history_.NoteRebuild(control_, rich, true);
  }
  listener_.onChange();
  return isStep;
}

// Of a text without formats of its own all units are alike.
std::optional<FormattedText> FrmMainEditor::FormatsOf(ControlRange range) const {
  if (HasFormatting() || range.length <= 1) {
    return range.empty() ? std::nullopt : control_.ReadFormatted(range);
  }
  const std::optional<FormattedText> first = control_.ReadFormatted({range.start, 1});
  if (!first) {
    return std::nullopt;
  }
  const std::u16string text = history_.text().ControlText(range);
  TextFormats formats{{{range.length, first->formats().runs.front().format}}, {}};
  formats.paragraphs.assign(static_cast<std::size_t>(std::ranges::count(text, u'\r')) + 1,
                            first->formats().paragraphs.front());
  return FormattedText(text, std::move(formats));
}

void FrmMainEditor::KnowFormatsBeforeInput() {
  // The program's own changes are told otherwise.
  if (!HasFormatting() || IsReadOnly() || box_.EventMask() == 0) {
    return;
  }
  constexpr std::size_t kAround = 100;
  ControlRange range = control_.Selection();
  if (range.empty()) {
    const std::size_t begin = range.start.value - std::min(range.start.value, kAround);
    range = {{begin}, std::min(range.start.value + kAround, history_.text().length()) - begin};
  }
  if (std::optional<FormattedText> formatted = control_.Formatted(range)) {
    history_.KnowFormats(range.start, std::move(*formatted));
  }
}

}  // namespace scrivanta
