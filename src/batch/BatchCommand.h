// One command of the console program: its arguments and its work. A subsystem's commands stand in one file
// (LineCommands.cpp, CipherCommands.cpp, ...) and are listed in BatchCommands().
#pragma once

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "batch/BatchInput.h"
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

// What a command works with. What it writes to an output is put in place only when it returns; an exception or an
// interrupt leaves every target as it was.
struct BatchContext {
  BatchInput& input;
  ByteSink& output;
  Encoding encoding;
  Progress& progress;
  // Opens an output beside the main one; it lives as long as the context. Throws FileError.
  std::function<ByteSink&(const std::filesystem::path&)> openFurtherOutput;
  std::vector<std::filesystem::path> outputFiles = {};  // what the main output is written to; none for standard output
  // A line on standard error about what could not be done, for a command that does the rest.
  std::function<void(const std::string&)> complain;
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
  // UTF-8. The options live in what the work holds (a shared_ptr), not in the caller.
  std::function<BatchWork(CLI::App&)> configure;
  bool takesInput = true;  // false: the command has positional arguments of its own, and its input is empty
};

std::vector<BatchCommand> LineBatchCommands();
std::vector<BatchCommand> RegExpBatchCommands();
std::vector<BatchCommand> FileBatchCommands();
std::vector<BatchCommand> CipherBatchCommands();
std::vector<BatchCommand> CalendarBatchCommands();
std::vector<BatchCommand> ContactBatchCommands();
std::vector<BatchCommand> TableBatchCommands();
std::vector<BatchCommand> DatabaseBatchCommands();
std::vector<BatchCommand> PinyinBatchCommands();
std::vector<BatchCommand> SystemBatchCommands();
std::vector<BatchCommand> WindowsBatchCommands();

// All of them, in the order of the help.
std::vector<BatchCommand> BatchCommands();

// A path from an argument.
std::filesystem::path PathFromUtf8(std::string_view argument);

}  // namespace scrivanta
