#include "contacts/KeptLines.h"

#include <algorithm>

#include "contacts/QuotedPrintable.h"
#include "text/Utf8.h"

namespace scrivanta {

namespace {

constexpr char kMark = '~';

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

}  // namespace

bool CanStandAsKept(std::string_view line) {
  return !line.starts_with(kMark) && std::ranges::none_of(line, IsControl) && MeasureUtf8(line).bytes == line.size();
}

void AppendKeptLines(std::string_view lines, std::string& kept) {
  for (std::size_t begin = 0; begin <= lines.size();) {
    const std::size_t end = std::min(lines.find('\n', begin), lines.size());
    const std::string_view line = lines.substr(begin, end - begin);
    kept += begin == 0 ? "" : "\n";
    if (CanStandAsKept(line)) {
      kept += line;
    } else {
      AppendMarkedLine(line, kept);
    }
    begin = end + 1;
  }
}

void AppendMarkedLine(std::string_view line, std::string& kept) {
  kept += kMark;
  for (const char c : line) {
    if (!IsControl(c) && static_cast<unsigned char>(c) < 0x80 && c != '=') {
      kept += c;
    } else {
      EncodeQuotedPrintableAppend({&c, 1}, kept);
    }
  }
}

bool IsMarked(std::string_view kept) {
  return kept.starts_with(kMark);
}

std::string LineOfKept(std::string_view kept) {
  return IsMarked(kept) ? DecodeQuotedPrintable(kept.substr(1)) : std::string(kept);
}

}  // namespace scrivanta
