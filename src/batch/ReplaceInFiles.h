// Replacing in files and folders: what the commands that replace in a text can do instead.
#pragma once

#include <memory>
#include <string>

#include "batch/BatchCommand.h"
#include "search/FindState.h"
#include "search/ReplaceRule.h"

namespace CLI {
class Option;
}

namespace scrivanta {

class ReplaceInFiles {
 public:
  // Adds --in-files and the options that go with it to the command's own; find is the option that tells what to find.
  // The parser outlives the object.
  ReplaceInFiles(CLI::App& parser, CLI::Option& find);

  // Whether files are meant, and not the command's input. Throws UnusableArguments for options that do not go together.
  bool IsMeant() const;
  // Replaces, lists what would be replaced, or puts back what was replaced before.
  ExitStatus Run(const FindState& state, PatternScope scope, BatchContext& context) const;

 private:
  struct Options {
    bool inFiles = false;
    bool recursive = false;
    bool dryRun = false;
    std::string filter = "*";
    std::string undoFolder;
  };
  ExitStatus Replace(const FindState& state, PatternScope scope, BatchContext& context) const;
  ExitStatus PutBack(BatchContext& context) const;

  const CLI::App& parser_;
  const CLI::Option& find_;
  std::shared_ptr<Options> options_ = std::make_shared<Options>();
};

}  // namespace scrivanta
