#include "lines/RegExpLineFilters.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include "lines/duplicates/DuplicateReport.h"
#include "regexp/LineBreakEscape.h"
#include "regexp/Markers.h"
#include "regexp/RegExpExtract.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// Writes a text line by line, without what is taken out of it: a line from which something was taken is empty, and a
// line break that was taken joins two lines. A line that holds the marker of such places itself is empty too.
class UntakenLines {
 public:
  // With keepsLineFeeds a lone line feed is part of a line, else it ends one.
  UntakenLines(std::u16string_view text, bool keepsLineFeeds, LineWriter& out, Encoding encoding)
      : text_(text), keepsLineFeeds_(keepsLineFeeds), out_(out), encoding_(encoding) {}

  // From left to right.
  void Take(std::size_t start, std::size_t end) {
    WriteLinesUpTo(start);
    isTaken_ = true;
    passed_ = end;
  }
  void Finish() {
    WriteLinesUpTo(text_.size());
    if (isTaken_ || lineStart_ < text_.size()) {
      WriteLine(text_.size(), text_.size());
    }
  }

 private:
  void WriteLinesUpTo(std::size_t end) {
    const std::u16string_view rest = text_.substr(0, end);
    for (std::size_t at = rest.find(u'\n', passed_); at != rest.npos; at = rest.find(u'\n', at + 1)) {
      const bool isAfterReturn = at > passed_ && text_[at - 1] == u'\r';
      if (isAfterReturn || !keepsLineFeeds_) {
        WriteLine(at - (isAfterReturn ? 1 : 0), at + 1);
      }
    }
  }
  // What was not taken out of a line stands in one piece.
  void WriteLine(std::size_t end, std::size_t next) {
    const std::u16string_view line = text_.substr(lineStart_, end - lineStart_);
    bytes_.clear();
    if (!isTaken_ && line.find(kSplitMarker) == line.npos) {
      EncodeAppend(encoding_, line, bytes_);
    }
    out_.WriteLine(bytes_);
    lineStart_ = next;
    passed_ = next;
    isTaken_ = false;
  }

  std::u16string_view text_;
  bool keepsLineFeeds_;
  LineWriter& out_;
  Encoding encoding_;
  std::size_t lineStart_ = 0;
  std::size_t passed_ = 0;  // up to here everything is written or taken
  bool isTaken_ = false;    // something of the line that begins at lineStart_
  std::string bytes_;       // of one line, kept for its memory
};

// Makes of reports on a place in one line reports on the place of that line among all of them.
class LineByLineProgress final : public Progress {
 public:
  LineByLineProgress(Progress& progress, std::uint64_t total) : progress_(progress), total_(total) {}

  void Report(std::uint64_t, std::uint64_t) override { progress_.Report(done_, total_); }
  void Pass(std::string_view line) { done_ = std::min(total_, done_ + line.size() + kLineBreak.size()); }

 private:
  Progress& progress_;
  std::uint64_t total_;  // bytes
  std::uint64_t done_ = 0;
};

}  // namespace

void RegExpWordFilter(std::u16string_view text, LineWriter& have, LineWriter& haveNot, const WordFilterOptions& options,
                      const RegExpEngine& engine, Progress& progress) {
  const std::vector<std::u16string> matches = ExtractFromText(engine, text, options.keyword, {}, progress);
  WriteHaveHeader(have, options);
  for (const std::u16string& match : matches) {
    have.WriteLine(Encode(options.encoding, match));
  }
  WriteHaveNotHeader(haveNot, options);
  UntakenLines rest(text, EndsWithLineBreakEscape(options.keyword), haveNot, options.encoding);
  engine.Compile(options.keyword, {.multiLine = true})
      ->Scan(
          text, 0,
          [&rest](const RegExpMatch& match) {
            rest.Take(match.start, match.end());
            return true;
          },
          progress);
  rest.Finish();
}

void RegExpFilterDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, std::u16string_view pattern,
                            Encoding encoding, const RegExpEngine& engine, Progress& progress) {
  LineByLineProgress lineByLine(progress, in.sourceSize().value_or(0));
  RegExpExtractor extractor(engine, pattern, {}, lineByLine);
  DuplicateReport repeats = DuplicateReport::WithGaps(report, encoding);
  std::unordered_set<std::u16string> seen;
  std::u16string text;
  while (in.Next()) {
    text.clear();
    DecodeAppend(encoding, in.line(), text);
    const std::vector<std::u16string> extracted = extractor.Extract(text);
    if (extracted.empty() || seen.insert(JoinLines(extracted)).second) {
      kept.WriteLine(in.line());
    } else {
      repeats.Add(in.line());
    }
    lineByLine.Pass(in.line());
  }
}

}  // namespace scrivanta
