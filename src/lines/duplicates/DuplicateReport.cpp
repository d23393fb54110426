#include "lines/duplicates/DuplicateReport.h"

#include <utility>

namespace scrivanta {

namespace {

constexpr std::u16string_view kHeader = u"以下为重复de文字行：";
constexpr int kEmptyLinesAbove = 6;

}  // namespace

DuplicateReport DuplicateReport::WithGaps(LineWriter& out, Encoding encoding) {
  for (int i = 0; i < kEmptyLinesAbove; ++i) {
    out.WriteLine({});
  }
  return {out, encoding, true};
}

DuplicateReport DuplicateReport::Plain(LineWriter& out, Encoding encoding) {
  return {out, encoding, false};
}

DuplicateReport::DuplicateReport(LineWriter& out, Encoding encoding, bool gapBeforeFirst)
    : out_(out), gapBeforeNext_(gapBeforeFirst) {
  out_.WriteLine(Encode(encoding, kHeader));
}

void DuplicateReport::Add(std::string_view repeat) {
  if (std::exchange(gapBeforeNext_, false)) {
    out_.WriteLine({});
  }
  out_.WriteLine(repeat);
}

}  // namespace scrivanta
