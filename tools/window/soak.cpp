// Works with the program at random for as many steps as it is told, and says what the process holds meanwhile.
//
//   soak STEPS [SEED]
#include "window/soak/Soak.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>

#include "window/driver/FirstRun.h"

namespace scrivanta {
namespace {

// What is made once and kept is there after these.
constexpr std::size_t kFirstSteps = 100;
constexpr std::size_t kStepsBetweenFigures = 500;

void RunSoak(std::size_t steps, std::uint64_t seed) {
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  std::fflush(stdout);
  ForgetEarlierRuns();
  const TestFolder folder;
  App app;
  app.Start();
  Soak soak(app, folder, seed);
  for (std::size_t done = 0, next = std::min(kFirstSteps, steps); done < steps;
       done = next, next = std::min(next + kStepsBetweenFigures, steps)) {
    soak.Run(next - done);
    std::printf("after %zu steps: %s\n", next, MeasureProcess().Text().c_str());
    std::fflush(stdout);
  }
}

}  // namespace
}  // namespace scrivanta

int wmain(int argc, wchar_t** argv) {
  if (argc != 2 && argc != 3) {
    std::fputs("usage: soak STEPS [SEED]\n", stderr);
    return 2;
  }
  SetConsoleOutputCP(CP_UTF8);
  try {
    const std::uint64_t seed = argc == 3 ? std::wcstoull(argv[2], nullptr, 10) : std::random_device()();
    scrivanta::RunSoak(std::wcstoul(argv[1], nullptr, 10), seed);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
