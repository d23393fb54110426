#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "lines/LineCleanup.h"
#include "lines/LineShuffle.h"
#include "lines/LineSort.h"
#include "lines/LineStore.h"
#include "lines/RegExpLineFilters.h"
#include "lines/TextStatistics.h"
#include "lines/WordFilter.h"
#include "lines/duplicates/DuplicateFilter.h"

namespace scrivanta {

namespace {

// One of the groups that a command divides its lines into: goes to the command's output, or is kept for later there,
// and to a file of its own when it has one.
class OutputGroup final : public ByteSink {
 public:
  OutputGroup(BatchContext& context, const std::string& file) : OutputGroup(context, file, context.output) {}
  OutputGroup(BatchContext& context, const std::string& file, ByteSink& output)
      : output_(output), file_(file.empty() ? nullptr : &context.openFurtherOutput(PathFromUtf8(file))) {}

  void Write(std::string_view bytes) override {
    output_.Write(bytes);
    if (file_ != nullptr) {
      file_->Write(bytes);
    }
  }

 private:
  ByteSink& output_;
  ByteSink* file_;
};

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

// All lines as one text with line breaks.
std::u16string ReadText(LineReader& in, Encoding encoding) {
  std::u16string text;
  while (in.Next()) {
    DecodeAppend(encoding, in.line(), text);
    text += u"\r\n";
  }
  return text;
}

BatchWork ConfigureFilter(CLI::App& parser) {
  struct Options {
    std::string keyword;
    std::string have;
    std::string haveNot;
    bool regExp = false;
  };
  const auto options = std::make_shared<Options>();
  parser.add_option("--keyword", options->keyword, "What the lines are to contain")->required()->type_name("K");
  parser.add_flag("--regexp", options->regExp, "The keyword is a regular expression: its matches come first");
  parser.add_option("--have", options->have, "Write the lines that contain it to a file too")->type_name("FILE");
  parser.add_option("--have-not", options->haveNot, "Write the other lines to a file too")->type_name("FILE");
  return [options](BatchContext& context) {
    const WordFilterOptions filter{Decode(Encoding::kUtf8, options->keyword), context.encoding};
    if (filter.keyword.empty()) {
      throw UnusableArguments("--keyword must not be empty");
    }
    OutputGroup have(context, options->have);
    Spool later;
    OutputGroup haveNot(context, options->haveNot, later);
    LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
    LineWriter haveWriter(have);
    LineWriter haveNotWriter(haveNot);
    if (options->regExp) {
      RegExpWordFilter(ReadText(reader, context.encoding), haveWriter, haveNotWriter, filter, BuiltInRegExpEngine(),
                       context.progress);
    } else {
      WordFilter(reader, haveWriter, haveNotWriter, filter);
    }
    haveWriter.Flush();
    haveNotWriter.Flush();
    CopyBytes(later, context.output);
    return ExitStatus::kDone;
  };
}

using DuplicateTransform = std::function<void(LineReader&, LineWriter& kept, LineWriter& report)>;

// Writes the kept lines, then the report; without any copy of a repeated line unless the first is to be kept.
void WriteWithoutDuplicates(BatchContext& context, bool keepFirst, const DuplicateTransform& transform) {
  Spool keptLater;
  Spool reportLater;
  LineWriter kept(keepFirst ? context.output : keptLater);
  LineWriter report(reportLater);
  LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
  transform(reader, kept, report);
  kept.Flush();
  report.Flush();
  if (!keepFirst) {
    LineReader keptReader(keptLater, LineEnds::kCrLf, context.progress);
    LineReader reportReader(reportLater, LineEnds::kCrLf, context.progress);
    LineWriter output(context.output);
    DropReportedLines(keptReader, reportReader, output, context.progress);
    output.Flush();
    reportLater.Rewind();
  }
  CopyBytes(reportLater, context.output);
}

void AddKeepChoice(CLI::App& parser, bool& keepFirst) {
  AddChoice(parser, "--keep", keepFirst, {{"first", true}, {"none", false}},
            "Which copy of a repeated line is kept: the first (default) or none");
}

BatchWork ConfigureDedupe(CLI::App& parser) {
  enum class Key { kLine, kFileName, kRegExp };
  struct Options {
    bool keepFirst = true;
    Key key = Key::kLine;
    std::string pattern;
  };
  const auto options = std::make_shared<Options>();
  AddKeepChoice(parser, options->keepFirst);
  AddChoice(parser, "--key", options->key,
            {{"line", Key::kLine}, {"file-name", Key::kFileName}, {"regexp", Key::kRegExp}},
            "What is compared: the line (default), the file name at its end, or what the pattern finds in it");
  parser.add_option("--pattern", options->pattern, "The regular expression for --key regexp")->type_name("P");
  return [options](BatchContext& context) {
    const std::u16string pattern = Decode(Encoding::kUtf8, options->pattern);
    if ((options->key == Key::kRegExp) == pattern.empty()) {
      throw UnusableArguments("--key regexp and --pattern go together");
    }
    WriteWithoutDuplicates(context, options->keepFirst, [&](LineReader& in, LineWriter& kept, LineWriter& report) {
      if (options->key == Key::kRegExp) {
        RegExpFilterDuplicates(in, kept, report, pattern, context.encoding, BuiltInRegExpEngine(), context.progress);
      } else {
        const DuplicateKey key = options->key == Key::kFileName ? DuplicateKey::kFileName : DuplicateKey::kLine;
        FilterDuplicates(in, kept, report, {key, context.encoding});
      }
    });
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureDedupeConsecutive(CLI::App& parser) {
  const auto keepFirst = std::make_shared<bool>(true);
  AddKeepChoice(parser, *keepFirst);
  return [keepFirst](BatchContext& context) {
    WriteWithoutDuplicates(context, *keepFirst, [&](LineReader& in, LineWriter& kept, LineWriter& report) {
      FilterConsecutiveDuplicates(in, kept, report, context.encoding);
    });
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureSort(CLI::App& parser) {
  struct Options {
    SortOptions sort;
    std::size_t from = 1;
    std::size_t to = std::numeric_limits<std::size_t>::max();
  };
  const auto options = std::make_shared<Options>();
  const std::map<std::string, SortBy> kinds{{"string", SortBy::kString},
                                            {"number", SortBy::kNumber},
                                            {"pinyin", SortBy::kPinyin},
                                            {"strokes", SortBy::kStrokes}};
  const std::map<std::string, bool> orders{{"up", false}, {"down", true}};
  AddChoice(parser, "--by", options->sort.by, kinds,
            "What to compare: string (default), number, or the Chinese characters' pinyin or strokes");
  AddChoice(parser, "--order", options->sort.descending, orders, "up (default) or down");
  parser.add_option("--from", options->from, "First line to sort, from 1")->type_name("X");
  parser.add_option("--to", options->to, "Last line to sort")->type_name("Y");
  return [options](BatchContext& context) {
    LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
    const LineStore lines(reader);
    SortOptions sort = options->sort;
    sort.encoding = context.encoding;
    sort.first = std::clamp<std::size_t>(options->from, 1, std::max<std::size_t>(1, lines.size()));
    sort.last = std::min(options->to, lines.size());
    LineWriter writer(context.output);
    SortLines(lines, writer, sort, context.progress);
    writer.Flush();
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureShuffle(CLI::App& parser) {
  const auto seed = std::make_shared<std::optional<std::uint64_t>>();
  parser.add_option("--seed", *seed, "The same number gives the same order again")->type_name("N");
  return [seed](BatchContext& context) {
    LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
    const LineStore lines(reader);
    LineWriter writer(context.output);
    ShuffleLines(lines, writer, seed->has_value() ? **seed : std::random_device()(), context.progress);
    writer.Flush();
    return ExitStatus::kDone;
  };
}

ExitStatus RunStatistics(BatchContext& context) {
  const TextStatistics counted = CountText(context.input, LineEnds::kCrLfOrLf, context.encoding, context.progress);
  const nlohmann::ordered_json result{{"characters", counted.characters}, {"hardLines", counted.hardLines}};
  context.output.Write(result.dump() + "\n");
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
      {.name = "filter",
       .description = "Put the lines that contain a keyword first, then the others",
       .example = "scrivanta-batch filter --keyword error --have errors.txt log.txt -o both.txt",
       .configure = ConfigureFilter},
      {.name = "dedupe",
       .description = "Take repeated lines out and list them behind the others",
       .example = "scrivanta-batch dedupe --keep none names.txt -o names-once.txt",
       .configure = ConfigureDedupe},
      {.name = "dedupe-consecutive",
       .description = "Take lines out that equal the line before them",
       .example = "scrivanta-batch dedupe-consecutive log.txt -o short.txt",
       .configure = ConfigureDedupeConsecutive},
      {.name = "sort",
       .description = "Sort lines",
       .example = "scrivanta-batch sort --by number --order down prices.txt -o sorted.txt",
       .configure = ConfigureSort},
      {.name = "shuffle",
       .description = "Put the lines into a random order",
       .example = "scrivanta-batch shuffle --seed 1 cards.txt",
       .configure = ConfigureShuffle},
      {.name = "statistics",
       .description = "Count characters and lines",
       .example = "scrivanta-batch statistics --encoding utf-8 notes.txt",
       .configure = [](CLI::App&) -> BatchWork { return RunStatistics; }},
  };
}

}  // namespace scrivanta
