// One command of the console program: its arguments and its work. A subsystem's commands stand in one file
// (LineCommands.cpp, CipherCommands.cpp, ...) and are listed in BatchCommands().
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/Progress.h"

namespace CLI {
class App;
}

namespace scrivanta {

enum class ExitStatus {
  kDone = 0,
  kNothingFound = 1,
  kUnusableArguments = 2,
  kFailed = 3,
};

// What a command works with. What it writes to output is put in place only when it returns; an exception or an
// interrupt leaves the target as it was.
struct BatchContext {
  ByteSource& input;
  ByteSink& output;
  Encoding encoding;
  Progress& progress;
};

// Arguments that only together cannot be used; what() says why. Ends the program with kUnusableArguments.
class UnusableArguments : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

using BatchWork = std::function<ExitStatus(BatchContext&)>;

struct BatchCommand {
  std::string name;
  std::string description;
  std::string example;  // a whole command line, shown by --help
  // Adds the command's own options to its parser and returns the work, which reads them when it runs. Arguments are
  // UTF-8.
  std::function<BatchWork(CLI::App&)> configure;
};

std::vector<BatchCommand> LineBatchCommands();
std::vector<BatchCommand> RegExpBatchCommands();
std::vector<BatchCommand> CipherBatchCommands();

}  // namespace scrivanta
