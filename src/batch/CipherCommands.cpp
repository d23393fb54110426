#include "batch/BatchCommand.h"

namespace scrivanta {

std::vector<BatchCommand> CipherBatchCommands() {
  return {};
}

}  // namespace scrivanta
