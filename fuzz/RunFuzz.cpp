#include "fuzz/RunFuzz.h"

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace scrivanta {

namespace {

constexpr std::size_t kMostBytes = 4096;

unsigned long FromEnvironment(const char* name, unsigned long otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::strtoul(value, nullptr, 10);
}

// As a C++ literal, to be pasted into a test.
std::string Written(std::string_view bytes) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string written = "\"";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    written += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 15U]};
  }
  return written + "\"";
}

class Mutator {
 public:
  Mutator(std::span<const std::string_view> inputs, std::span<const std::string_view> tokens, unsigned long seed)
      : inputs_(inputs), tokens_(tokens), random_(seed) {}

  std::string Next() {
    std::string bytes(OneOf(inputs_));
    for (std::size_t times = 1 + Below(6); times > 0; --times) {
      Mutate(bytes);
    }
    bytes.resize(std::min(bytes.size(), kMostBytes));
    return bytes;
  }

 private:
  std::size_t Below(std::size_t count) { return count == 0 ? 0 : random_() % count; }

  std::string_view OneOf(std::span<const std::string_view> texts) {
    return texts.empty() ? std::string_view() : texts[Below(texts.size())];
  }

  void Mutate(std::string& bytes) {
    const std::size_t at = Below(bytes.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(bytes.size() - at, 16) + 1);
    switch (Below(7)) {
      case 0:
        bytes.insert(at, 1, static_cast<char>(random_()));
        break;
      case 1:
        bytes.replace(at, std::min<std::size_t>(1, length), 1, static_cast<char>(random_()));
        break;
      case 2:
        bytes.erase(at, length);
        break;
      case 3:
        bytes.insert(Below(bytes.size() + 1), bytes.substr(at, length));
        break;
      case 4:
        bytes.insert(at, OneOf(tokens_));
        break;
      case 5:
        bytes.replace(at, length, OneOf(tokens_));
        break;
      default:
        Splice(bytes, at);
    }
  }

  // The front of one input, the end of another.
  void Splice(std::string& bytes, std::size_t at) {
    const std::string_view other = OneOf(inputs_);
    bytes.replace(at, std::string::npos, other.substr(Below(other.size() + 1)));
  }

  std::span<const std::string_view> inputs_;
  std::span<const std::string_view> tokens_;
  std::mt19937 random_;
};

bool Passes(FuzzTarget target, std::string_view bytes) {
  SCOPED_TRACE("input " + Written(bytes));
  target(bytes);
  return !testing::Test::HasFailure();
}

}  // namespace

void RunFuzz(FuzzTarget target, std::span<const std::string_view> inputs, std::span<const std::string_view> tokens) {
  const unsigned long rounds = FromEnvironment("SCRIVANTA_FUZZ_ROUNDS", 5000);
  Mutator mutator(inputs, tokens, FromEnvironment("SCRIVANTA_FUZZ_SEED", 1));
  const bool inputsPass =
      std::all_of(inputs.begin(), inputs.end(), [target](std::string_view bytes) { return Passes(target, bytes); });
  for (unsigned long round = 0; inputsPass && round < rounds; ++round) {
    if (!Passes(target, mutator.Next())) {
      return;
    }
  }
}

}  // namespace scrivanta
