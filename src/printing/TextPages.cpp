#include "printing/TextPages.h"

#include <algorithm>
#include <utility>

#include "text/Surrogates.h"

namespace scrivanta {

namespace {

// No paper holds a line of more units; a file may hold nothing but one line.
constexpr std::size_t kLongestLine = 1024;
constexpr std::size_t kTabColumns = 8;
constexpr std::size_t kLinesBetweenReports = 256;

// What is shown of a piece of text, and from which unit of the text each unit of it comes.
struct Expanded {
  std::u16string shown;
  std::vector<std::size_t> sources;
};

// A tab goes to the next column that can be divided by eight, a Chinese character taking two. Other control characters
// are blanks.
Expanded ExpandTabs(std::u16string_view piece) {
  Expanded expanded;
  std::size_t column = 0;
  const auto add = [&expanded](char16_t unit, std::size_t source) {
    expanded.shown += unit;
    expanded.sources.push_back(source);
  };
  for (std::size_t i = 0; i < piece.size(); ++i) {
    const char16_t unit = piece[i];
    if (unit == u'\t') {
      do {
        add(u' ', i);
        ++column;
      } while (column % kTabColumns != 0);
    } else {
      add(unit < u' ' ? u' ' : unit, i);
      column += unit < 0x80 || IsSurrogate(unit) ? 1 : 2;
    }
  }
  return expanded;
}

bool IsOfWord(char16_t unit) {
  return unit > u' ' && unit < 0x7F;
}

// Where a line that is too long for the page is broken: not within a word, if there is another place, and never within
// a pair of surrogates. Blanks stay with the line before.
std::size_t BreakPlace(std::u16string_view shown, std::size_t fitting) {
  std::size_t place = std::max<std::size_t>(fitting, 1);
  if (place < shown.size() && IsLowSurrogate(shown[place]) && IsHighSurrogate(shown[place - 1])) {
    place = place > 1 ? place - 1 : place + 1;
  }
  if (place < shown.size() && IsOfWord(shown[place]) && IsOfWord(shown[place - 1])) {
    std::size_t start = place;
    while (start > 0 && IsOfWord(shown[start - 1])) {
      --start;
    }
    place = start > 0 ? start : place;
  }
  return std::min(shown.find_first_not_of(u' ', place), shown.size());
}

}  // namespace

TextPages::TextPages(std::u16string text, const LineMeasure& measure, std::size_t linesOfPage)
    : text_(std::move(text)), measure_(measure), linesOfPage_(std::max<std::size_t>(linesOfPage, 1)) {}

void TextPages::LayOut(Progress& progress) {
  starts_.clear();
  std::size_t lines = 0;
  for (std::size_t position = 0; position < text_.size(); position = LineAt(position).next) {
    if (lines % linesOfPage_ == 0) {
      starts_.push_back(position);
    }
    if (++lines % kLinesBetweenReports == 0) {
      progress.Report(position, text_.size());
    }
  }
}

std::vector<std::u16string> TextPages::LinesOf(std::size_t page) const {
  std::vector<std::u16string> lines;
  for (std::size_t position = starts_.at(page); position < text_.size() && lines.size() < linesOfPage_;) {
    Line line = LineAt(position);
    lines.push_back(std::move(line.shown));
    position = line.next;
  }
  return lines;
}

TextPages::Line TextPages::LineAt(std::size_t position) const {
  constexpr std::u16string_view kBreak = u"\r\n";
  const std::u16string_view rest = std::u16string_view(text_).substr(position, kLongestLine + kBreak.size());
  const std::size_t lineEnd = rest.find(kBreak);
  std::u16string_view piece = rest.substr(0, std::min(lineEnd, kLongestLine));
  if (piece.size() == kLongestLine && IsHighSurrogate(piece.back())) {
    piece.remove_suffix(1);
  }
  Expanded line = ExpandTabs(piece);
  const std::size_t fitting = measure_.FittingUnits(line.shown);
  const std::size_t place = fitting < line.shown.size() ? BreakPlace(line.shown, fitting) : line.shown.size();
  if (place < line.shown.size()) {
    line.shown.resize(place);
    return {std::move(line.shown), position + line.sources[place - 1] + 1};
  }
  const bool isEnded = piece.size() == lineEnd;
  return {std::move(line.shown), position + piece.size() + (isEnded ? kBreak.size() : 0)};
}

}  // namespace scrivanta
