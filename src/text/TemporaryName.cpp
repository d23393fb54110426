#include "text/TemporaryName.h"

#include <random>
#include <string_view>

namespace scrivanta {

std::string TemporaryName() {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
  std::random_device random;
  std::string name = "scrivanta-";
  for (int i = 0; i < 16; ++i) {
    name += kLetters[random() % kLetters.size()];
  }
  return name + ".tmp";
}

}  // namespace scrivanta
