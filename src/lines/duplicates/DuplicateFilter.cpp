#include "lines/duplicates/DuplicateFilter.h"

#include <string>

#include "lines/duplicates/DuplicateReport.h"
#include "lines/duplicates/KeyIndex.h"
#include "lines/duplicates/ReportedLines.h"
#include "text/PathParts.h"

namespace scrivanta {

namespace {

// In the code page "\" can be the second byte of a character, so it is looked for in the text.
std::string_view FileNameBytes(std::string_view line, Encoding encoding) {
  if (line.find('\\') == std::string_view::npos) {
    return line;
  }
  const std::u16string text = Decode(encoding, line);
  const std::size_t length = Encode(encoding, FileNamePart(text)).size();
  return line.substr(line.size() - length);
}

}  // namespace

void FilterDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, const DuplicateOptions& options) {
  DuplicateReport repeats = DuplicateReport::WithGaps(report, options.encoding);
  KeyIndex seen(in.sourceSize().value_or(0));
  while (in.Next()) {
    const std::string_view line = in.line();
    const std::string_view key = options.key == DuplicateKey::kFileName ? FileNameBytes(line, options.encoding) : line;
    if (!line.empty() && seen.ContainsOrAdd(key)) {
      repeats.Add(line);
    } else {
      kept.WriteLine(line);
    }
  }
}

void FilterConsecutiveDuplicates(LineReader& in, LineWriter& kept, LineWriter& report, Encoding encoding) {
  DuplicateReport repeats = DuplicateReport::Plain(report, encoding);
  std::string previous;
  while (in.Next()) {
    if (in.number() > 1 && in.line() == previous) {
      repeats.Add(in.line());
    } else {
      kept.WriteLine(in.line());
      previous = in.line();
    }
  }
}

void DropReportedLines(LineReader& kept, LineReader& report, LineWriter& out, Progress& progress) {
  const ReportedLines reported(report, progress);
  while (kept.Next()) {
    if (kept.line().empty() || !reported.HasAtLineBegin(kept.line())) {
      out.WriteLine(kept.line());
    }
  }
}

}  // namespace scrivanta
