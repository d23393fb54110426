#include "text/UpperCase.h"

#include <vector>

#include "text/UpperCaseTable.h"

namespace scrivanta {

namespace {

// One entry a character.
std::vector<char16_t> MakeTable() {
  std::vector<char16_t> table(0x10000);
  for (unsigned c = 0; c < table.size(); ++c) {
    table[c] = static_cast<char16_t>(c);
  }
  for (const UpperCaseRun& run : UpperCaseRuns()) {
    for (int c = run.first; c <= run.last; c += run.step) {
      table[static_cast<unsigned>(c)] = static_cast<char16_t>(c + run.distance);
    }
  }
  return table;
}

const char16_t* Table() noexcept {
  static const std::vector<char16_t> table = MakeTable();
  return table.data();
}

}  // namespace

char16_t UpperCase(char16_t c) noexcept {
  return Table()[c];
}

std::u16string UpperCase(std::u16string_view text) {
  const char16_t* table = Table();
  std::u16string upper(text);
  for (char16_t& c : upper) {
    c = table[c];
  }
  return upper;
}

}  // namespace scrivanta
