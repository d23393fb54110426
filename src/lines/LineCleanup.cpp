#include "lines/LineCleanup.h"

#include <algorithm>
#include <string>

#include "text/LineText.h"

namespace scrivanta {

namespace {

std::uint64_t CountTabs(std::string_view line) {
  return static_cast<std::uint64_t>(std::count(line.begin(), line.end(), '\t'));
}

}  // namespace

void DelEmptyLines(LineReader& in, LineWriter& out) {
  while (in.Next()) {
    if (!in.line().empty()) {
      out.WriteLine(in.line());
    }
  }
}

std::uint64_t TrimLines(LineReader& in, LineWriter& out) {
  std::uint64_t trimmed = 0;
  while (in.Next()) {
    const std::string_view line = TrimSpaces(in.line());
    trimmed += line.size() < in.line().size() ? 1 : 0;
    out.WriteLine(line);
  }
  return trimmed;
}

void DelLines(LineReader& in, LineWriter& out, const LineRange& range) {
  while (in.Next()) {
    const auto number = static_cast<long long>(in.number());
    if (number < range.first || number > range.last) {
      out.WriteLine(in.line());
    }
  }
}

std::uint64_t MostTabs(LineReader& in) {
  std::uint64_t most = 0;
  while (in.Next()) {
    most = std::max(most, CountTabs(in.line()));
  }
  return most;
}

void AddTabs(LineReader& in, LineWriter& out, std::uint64_t tabs) {
  std::string padding;
  while (in.Next()) {
    const std::uint64_t present = CountTabs(in.line());
    padding.assign(static_cast<std::size_t>(tabs - std::min(tabs, present)), '\t');
    out.WriteRaw(in.line());
    out.WriteLine(padding);
  }
}

}  // namespace scrivanta
