#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "lines/LineCleanup.h"

namespace scrivanta {

namespace {

// The work of a command that goes from lines to lines and has nothing to set.
template <typename Transform>
std::function<BatchWork(CLI::App&)> LinesToLines(Transform transform) {
  return [transform](CLI::App&) -> BatchWork {
    return [transform](BatchContext& context) {
      LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
      LineWriter writer(context.output);
      transform(reader, writer);
      writer.Flush();
      return ExitStatus::kDone;
    };
  };
}

BatchWork ConfigureDelLines(CLI::App& parser) {
  const auto range = std::make_shared<LineRange>();
  parser.add_option("--from", range->first, "First line to delete, from 1")->required()->type_name("X");
  parser.add_option("--to", range->last, "Last line to delete")->required()->type_name("Y");
  return [range](BatchContext& context) {
    LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
    LineWriter writer(context.output);
    DelLines(reader, writer, *range);
    writer.Flush();
    return ExitStatus::kDone;
  };
}

ExitStatus RunAddTabs(BatchContext& context) {
  context.input.MakeRewindable(context.progress);
  LineReader counted(context.input, LineEnds::kCrLfOrLf, context.progress);
  const std::uint64_t tabs = MostTabs(counted);
  context.input.Rewind();
  LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
  LineWriter writer(context.output);
  AddTabs(reader, writer, tabs);
  writer.Flush();
  return ExitStatus::kDone;
}

}  // namespace

std::vector<BatchCommand> LineBatchCommands() {
  return {
      {.name = "del-empty-lines",
       .description = "Remove the empty lines",
       .example = "scrivanta-batch del-empty-lines report.txt -o report.txt",
       .configure = LinesToLines(DelEmptyLines)},
      {.name = "trim-lines",
       .description = "Remove the spaces around every line",
       .example = "scrivanta-batch trim-lines --encoding utf-8 notes.txt -o trimmed.txt",
       .configure = LinesToLines(TrimLines)},
      {.name = "del-lines",
       .description = "Remove a range of lines",
       .example = "scrivanta-batch del-lines --from 5 --to 9 report.txt -o rest.txt",
       .configure = ConfigureDelLines},
      {.name = "add-tabs",
       .description = "Give every line the same number of tabs",
       .example = "scrivanta-batch add-tabs table.txt -o table.txt",
       .configure = [](CLI::App&) -> BatchWork { return RunAddTabs; }},
  };
}

}  // namespace scrivanta
