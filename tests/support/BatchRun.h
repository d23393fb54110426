// Runs the console program inside a test, on streams of memory.
#pragma once

#include <atomic>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "batch/RunBatch.h"

namespace scrivanta::testing {

struct BatchResult {
  int status = 0;
  std::string output;
  std::string errors;
};

inline BatchResult RunBatchOn(std::string_view input, const std::vector<std::string>& arguments,
                              bool interrupted = false) {
  MemorySource source(input);
  StringSink sink;
  std::ostringstream errors;
  const std::atomic<bool> interruptedFlag = interrupted;
  const int status = RunBatch(arguments, {source, sink, errors, false, interruptedFlag});
  return {status, sink.bytes(), errors.str()};
}

inline std::size_t FilesIn(const std::filesystem::path& folder) {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

}  // namespace scrivanta::testing
