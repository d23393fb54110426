// The companion program, running: what is written goes to its standard input, what it writes is read.
#pragma once

#include <filesystem>
#include <memory>

#include "text/Bytes.h"

namespace scrivanta {

class CompanionProcess {
 public:
  // Throws FileError.
  explicit CompanionProcess(const std::filesystem::path& program);
  CompanionProcess(const CompanionProcess&) = delete;
  CompanionProcess& operator=(const CompanionProcess&) = delete;
  // Closes its input, at whose end it ends.
  ~CompanionProcess();

  ByteSource& output() noexcept;
  ByteSink& input() noexcept;

 private:
  class Pipes;
  std::unique_ptr<Pipes> pipes_;
};

// Where the companion is to be found: beside this program. It need not be there.
std::filesystem::path CompanionProgram();

}  // namespace scrivanta
