// The way back from columns to lines.
#include <algorithm>
#include <string>

#include "tables/ColumnNames.h"
#include "tables/NewspaperColumns.h"
#include "tables/RecordError.h"
#include "text/CharacterBytes.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The places, in the unit, at which any line has something else than a blank.
std::vector<bool> TakenPlaces(const LinePass& lines, const NewspaperOptions& options) {
  const TextWidth measure(options.encoding, options.unit);
  std::vector<bool> taken;
  const std::unique_ptr<LineReader> reader = lines();
  while (reader->Next()) {
    std::size_t place = 0;
    for (std::string_view rest = reader->line(); !rest.empty();) {
      const std::string_view character = rest.substr(0, CharacterBytes(options.encoding, rest));
      const std::size_t end = place + measure.Of(character);
      if (end > taken.size()) {
        taken.resize(end);
      }
      if (character != " ") {
        std::fill(taken.begin() + static_cast<std::ptrdiff_t>(place), taken.begin() + static_cast<std::ptrdiff_t>(end),
                  true);
      }
      place = end;
      rest.remove_prefix(character.size());
    }
  }
  return taken;
}

// Where the columns stand: between the widest runs of blanks that all lines have in common. The end of the last one is
// open.
std::vector<std::size_t> FindBegins(const LinePass& lines, const NewspaperOptions& options) {
  const std::vector<bool> taken = TakenPlaces(lines, options);
  if (taken.empty()) {  // nothing to divide
    return std::vector<std::size_t>(options.count);
  }
  std::vector<Span> blanks;
  for (std::size_t place = 0; place < taken.size(); ++place) {
    if (taken[place]) {
      continue;
    }
    if (blanks.empty() || blanks.back().end != place) {
      blanks.push_back({place, place});
    }
    blanks.back().end = place + 1;
  }
  std::erase_if(blanks, [&](const Span& run) {
    return run.begin == 0 || run.end == taken.size() || run.end - run.begin < options.gap;
  });
  if (blanks.size() + 1 < options.count) {
    throw ColumnError("blanks divide the text into " + std::to_string(blanks.size() + 1) + " columns only",
                      u"空格只把文本隔成" + DecimalText(blanks.size() + 1) + u"栏，请改栏数、栏宽或栏间距。");
  }
  std::stable_sort(blanks.begin(), blanks.end(),
                   [](const Span& a, const Span& b) { return a.end - a.begin > b.end - b.begin; });
  std::vector<std::size_t> begins = {0};
  for (std::size_t i = 0; i + 1 < options.count; ++i) {
    begins.push_back(blanks[i].end);
  }
  std::sort(begins.begin(), begins.end());
  return begins;
}

std::vector<std::size_t> BeginsOfColumns(const LinePass& lines, const NewspaperOptions& options) {
  if (options.width == 0) {
    return FindBegins(lines, options);
  }
  std::vector<std::size_t> begins;
  for (std::size_t i = 0; i < options.count; ++i) {
    begins.push_back(i * (options.width + options.gap));
  }
  return begins;
}

std::string_view WithoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Writes lines, empty ones only when another follows.
class CellWriter {
 public:
  explicit CellWriter(LineWriter& out) : out_(out) {}

  void Write(std::string_view cell) {
    if (cell.empty()) {
      ++empties_;
      return;
    }
    written_ += empties_ + 1;
    for (; empties_ > 0; --empties_) {
      out_.WriteLine("");
    }
    out_.WriteLine(cell);
  }
  std::uint64_t written() const { return written_; }

 private:
  LineWriter& out_;
  std::uint64_t empties_ = 0;
  std::uint64_t written_ = 0;
};

}  // namespace

std::uint64_t TakeColumnsApart(const LinePass& lines, LineWriter& out, const NewspaperOptions& options) {
  const std::vector<std::size_t> begins = BeginsOfColumns(lines, options);
  const TextWidth measure(options.encoding, options.unit);
  std::vector<std::vector<std::string>> page(options.count);
  CellWriter writer(out);
  const auto writePage = [&] {
    for (auto& column : page) {
      for (const std::string& cell : column) {
        writer.Write(cell);
      }
      column.clear();
    }
  };
  const std::unique_ptr<LineReader> reader = lines();
  while (reader->Next()) {
    std::string_view rest = reader->line();
    std::size_t place = 0;
    for (std::size_t i = 0; i < options.count; ++i) {
      const std::size_t room = i + 1 < options.count ? begins[i + 1] - place : static_cast<std::size_t>(-1);
      const FittingPart part = measure.Fit(rest, room);
      const std::string_view cell = WithoutBlanksBehind(rest.substr(0, part.bytes));
      if (options.width != 0 && i + 1 < options.count && measure.Of(cell) > options.width) {
        throw RecordError(reader->number(), i + 1, "text stands in the gap behind the column", u"栏间的空白处有文字");
      }
      if (options.across) {
        writer.Write(cell);
      } else {
        page[i].emplace_back(cell);
      }
      rest.remove_prefix(part.bytes);
      place += part.width;
    }
    if (options.linesPerPage != 0 && page.front().size() == options.linesPerPage) {
      writePage();
    }
  }
  writePage();
  return writer.written();
}

}  // namespace scrivanta
