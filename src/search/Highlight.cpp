#include "search/Highlight.h"

#include <algorithm>

#include "rtf/RtfEscape.h"
#include "rtf/RtfHeader.h"
#include "search/EditSelection.h"
#include "search/FindNext.h"
#include "search/TextRanges.h"
#include "shell/workbench/ResultFiles.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kHighlightFile = u"HaveRtf.rtf";
constexpr std::string_view kHighlightOn = "\\cf2\\b ";
constexpr std::string_view kHighlightOff = "\\cf1\\b0 ";
constexpr std::size_t kCharactersPerReport = 64 * 1024;

// Writes characters and line ends into the body of a rich text.
class BodyWriter {
 public:
  BodyWriter(std::string& rtf, std::size_t textLength, Progress& progress)
      : rtf_(rtf), textLength_(textLength), progress_(progress) {}

  // A piece of the text; highlighted over all lines that it touches.
  void Write(std::u16string_view piece, bool highlighted) {
    for (;;) {
      const std::size_t end = piece.find(u"\r\n");
      WriteInLine(piece.substr(0, end), highlighted);
      if (end == std::u16string_view::npos) {
        return;
      }
      EndLine();
      piece.remove_prefix(end + 2);
    }
  }

  void EndLine() { rtf_ += kRtfLineEnd; }

 private:
  void WriteInLine(std::u16string_view piece, bool highlighted) {
    if (piece.empty()) {
      return;
    }
    const std::string escaped = RtfHexEscape(RtfEscapeText(piece));
    if (highlighted) {
      rtf_.append(kHighlightOn).append(escaped).append(kHighlightOff);
    } else {
      rtf_ += escaped;
    }
    written_ += piece.size();
    if (written_ - reported_ > kCharactersPerReport) {
      reported_ = written_;
      progress_.Report(written_, textLength_);
    }
  }

  std::string& rtf_;
  std::size_t textLength_;
  Progress& progress_;
  std::size_t written_ = 0;
  std::size_t reported_ = 0;
};

}  // namespace

RtfByLines HighlightedRtf(std::u16string_view text, std::span<const TextRange> ranges, HighlightHeader header,
                          Progress& progress) {
  RtfByLines rtf;
  rtf.header = header == HighlightHeader::kSongTi ? kHighlightHeader : kFindAllHeader;
  rtf.lines.reserve(text.size() * 2 + ranges.size() * 16);
  BodyWriter body(rtf.lines, text.size(), progress);
  std::size_t written = 0;  // of the text
  for (const TextRange& range : ranges) {
    // A range may begin or end within a line break, which then belongs to what is before it.
    body.Write(text.substr(written, range.start.value - written), false);
    body.Write(text.substr(range.start.value, range.length), true);
    written = range.end().value;
  }
  body.Write(text.substr(written), false);
  body.EndLine();
  return rtf;
}

std::vector<TextRange> FindWords(std::u16string_view text, std::u16string_view words, Progress& progress) {
  std::vector<TextRange> places;
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(u'|'), words.size());
    if (end > 0) {
      const LiteralFinder finder(words.substr(0, end), true);
      for (std::size_t at = finder.Find(text, 0, progress); at != LiteralFinder::kNotFound;
           at = finder.Find(text, at + end, progress)) {
        places.push_back({{at}, end});
      }
    }
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  return MergeRanges(std::move(places));
}

void HighlightInEditor(Workbench& workbench, std::u16string_view words) {
  std::u16string asked(words);
  if (asked.empty()) {
    asked = workbench.prompts().Input(
        {.prompt = u"高亮显示字符：", .title = u"高亮显示字符：", .preset = workbench.editor().SelectedText()});
    if (asked.empty()) {
      return;
    }
  }
  const auto work = workbench.StartWork();
  const std::u16string text = workbench.editor().Text();
  const std::vector<TextRange> places = FindWords(text, asked, work->progress());
  if (places.empty()) {
    SayNotFound(workbench.prompts());
    return;
  }
  HighlightRanges(workbench, text, places, HighlightHeader::kSongTi, work->progress());
}

void HighlightRanges(Workbench& workbench, std::u16string_view text, std::span<const TextRange> ranges,
                     HighlightHeader header, Progress& progress) {
  Editor& editor = workbench.editor();
  ResultFile file(workbench, kHighlightFile);
  const RtfByLines rtf = HighlightedRtf(text, ranges, header, progress);
  file.Write(rtf.Whole());
  file.Save();
  const TextRange selection = editor.Selection();
  const ScrollPosition scroll = editor.Scroll();
  editor.SetRtf(rtf);
  editor.SetSelection(selection);
  editor.SetScroll(scroll);
}

}  // namespace scrivanta
