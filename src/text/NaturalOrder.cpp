#include "text/NaturalOrder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "text/LineText.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

// The run of digits with which the text begins, taken off it, without its leading zeros.
std::u16string_view TakeNumber(std::u16string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && IsDigit(text[length])) {
    ++length;
  }
  std::u16string_view digits = text.substr(0, length);
  text.remove_prefix(length);
  digits.remove_prefix(std::min(digits.find_first_not_of(u'0'), digits.size()));
  return digits;
}

}  // namespace

bool NaturalLess(std::u16string_view left, std::u16string_view right) {
  std::u16string_view leftRest = left;
  std::u16string_view rightRest = right;
  while (!leftRest.empty() && !rightRest.empty()) {
    if (IsDigit(leftRest.front()) && IsDigit(rightRest.front())) {
      const std::u16string_view leftNumber = TakeNumber(leftRest);
      const std::u16string_view rightNumber = TakeNumber(rightRest);
      if (leftNumber != rightNumber) {
        return std::pair(leftNumber.size(), leftNumber) < std::pair(rightNumber.size(), rightNumber);
      }
      continue;
    }
    const char16_t leftUnit = UpperCase(leftRest.front());
    const char16_t rightUnit = UpperCase(rightRest.front());
    if (leftUnit != rightUnit) {
      return leftUnit < rightUnit;
    }
    leftRest.remove_prefix(1);
    rightRest.remove_prefix(1);
  }
  return leftRest.empty() == rightRest.empty() ? left < right : leftRest.empty();
}

void SortNaturally(std::vector<std::filesystem::path>& paths) {
  std::vector<std::pair<std::u16string, std::filesystem::path>> named;
  named.reserve(paths.size());
  for (std::filesystem::path& path : paths) {
    std::u16string name = TextOfPath(path);
    named.emplace_back(std::move(name), std::move(path));
  }
  std::sort(named.begin(), named.end(),
            [](const auto& left, const auto& right) { return NaturalLess(left.first, right.first); });
  std::transform(named.begin(), named.end(), paths.begin(), [](auto& entry) { return std::move(entry.second); });
}

}  // namespace scrivanta
