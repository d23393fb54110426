#include "lines/RegExpLineFilters.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include "lines/DuplicateReport.h"
#include "regexp/Markers.h"
#include "regexp/RegExpExtract.h"
#include "regexp/RegExpReplace.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

// Writes the lines of the text, those with the marker as empty ones.
void WriteUnmarkedLines(std::u16string_view text, LineWriter& out, Encoding encoding) {
  std::string bytes;
  while (!text.empty()) {
    const std::size_t end = text.find(kLineBreak);
    const std::u16string_view line = text.substr(0, end);
    bytes.clear();
    if (line.find(kSplitMarker) == std::u16string_view::npos) {
      EncodeAppend(encoding, line, bytes);
    }
    out.WriteLine(bytes);
    text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + kLineBreak.size());
  }
}

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
  WriteUnmarkedLines(ReplaceInText(engine, text, options.keyword, kSplitMarker, {}, progress), haveNot,
                     options.encoding);
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
    if (extracted.empty() || seen.insert(JoinResults(extracted)).second) {
      kept.WriteLine(in.line());
    } else {
      repeats.Add(in.line());
    }
    lineByLine.Pass(in.line());
  }
}

}  // namespace scrivanta
