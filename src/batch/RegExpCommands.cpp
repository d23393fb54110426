#include "batch/BatchCommand.h"

namespace scrivanta {

std::vector<BatchCommand> RegExpBatchCommands() {
  return {};
}

}  // namespace scrivanta
