#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"

namespace scrivanta {

std::vector<BatchCommand> TableBatchCommands() {
  return {};
}

}  // namespace scrivanta
