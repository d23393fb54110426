#include "lines/LineShuffle.h"

#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "lines/PacedProgress.h"
#include "lines/WriteInOrder.h"

namespace scrivanta {

namespace {

// Uniform in [0, 1). The distributions of the standard library are free to differ between systems; this does not.
double NextFraction(std::mt19937_64& random) {
  constexpr double kUnit = 1.0 / 9007199254740992.0;  // 2^-53
  return static_cast<double>(random() >> 11U) * kUnit;
}

}  // namespace

void ShuffleLines(const LineStore& lines, LineWriter& out, std::uint64_t seed, Progress& progress) {
  std::vector<std::size_t> order(lines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::mt19937_64 random(seed);
  PacedProgress drawing(progress, order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    drawing.Step();
    const auto drawn = static_cast<std::size_t>(static_cast<double>(order.size()) * NextFraction(random));
    std::swap(order[i], order[drawn]);
  }
  WriteInOrder(
      lines, order.size(), [&order](std::size_t i) { return order[i]; }, out, progress);
}

}  // namespace scrivanta
