#include "text/TemporaryName.h"

#include <algorithm>
#include <random>

namespace scrivanta {

namespace {

constexpr std::string_view kBegin = "scrivanta-";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
constexpr std::size_t kLength = 16;
constexpr std::string_view kEnd = ".tmp";

}  // namespace

std::string TemporaryName() {
  std::random_device random;
  std::string name(kBegin);
  for (std::size_t i = 0; i < kLength; ++i) {
    name += kLetters[random() % kLetters.size()];
  }
  return name.append(kEnd);
}

bool IsTemporaryName(std::u16string_view name) {
  if (name.size() != kBegin.size() + kLength + kEnd.size() ||
      !std::ranges::equal(name.substr(0, kBegin.size()), kBegin) ||
      !std::ranges::equal(name.substr(kBegin.size() + kLength), kEnd)) {
    return false;
  }
  return std::ranges::all_of(name.substr(kBegin.size(), kLength), [](char16_t letter) {
    return letter < 0x80 && kLetters.find(static_cast<char>(letter)) != std::string_view::npos;
  });
}

}  // namespace scrivanta
