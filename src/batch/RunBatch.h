// The console program without its process: tests run it on streams of their own.
#pragma once

#include <atomic>
#include <ostream>
#include <string>
#include <vector>

#include "text/Bytes.h"

namespace scrivanta {

struct BatchStreams {
  ByteSource& input;
  ByteSink& output;
  std::ostream& errors;
  bool errorsAreTerminal;
  const std::atomic<bool>& interrupted;  // set from outside when the user presses the interrupt key
};

// The arguments are UTF-8, without the program's name. Returns the exit status.
int RunBatch(const std::vector<std::string>& arguments, const BatchStreams& streams);

}  // namespace scrivanta
