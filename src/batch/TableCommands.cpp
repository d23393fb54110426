#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "tables/ColumnNames.h"
#include "tables/CopyRecords.h"
#include "tables/FixedWidth.h"
#include "tables/NewspaperColumns.h"
#include "tables/SplitPositions.h"
#include "tables/TableJoin.h"

namespace scrivanta {

namespace {

std::u16string FromArgument(const std::string& argument) {
  return Decode(Encoding::kUtf8, argument);
}

// A layout or column that the arguments name wrongly.
template <typename Make>
auto UsableOrThrow(const Make& make) {
  try {
    return make();
  } catch (const LayoutError& error) {
    throw UnusableArguments(error.what());
  } catch (const ColumnError& error) {
    throw UnusableArguments(error.what());
  }
}

void AddWidthUnit(CLI::App& parser, WidthUnit& unit) {
  AddChoice(parser, "--width-unit", unit,
            {{"gbk", WidthUnit::kGbkBytes}, {"cells", WidthUnit::kCells}, {"characters", WidthUnit::kCharacters}},
            "What widths count: bytes in GBK (default), cells of the screen, characters");
}

void AddDelimiter(CLI::App& parser, std::string& delimiter) {
  parser.add_option("--delimiter", delimiter, "tab (default), comma, semicolon, blanks, or a text")->type_name("D");
}

RecordFormat FormatOfArgument(const std::string& delimiter, Encoding encoding) {
  if (delimiter.empty()) {
    throw UnusableArguments("--delimiter must not be empty");
  }
  return FormatOfDelimiter(FromArgument(delimiter), encoding);
}

// The layout that the options of the two commands with fixed widths describe.
struct LayoutOptions {
  std::string delimiter = "tab";
  std::string widths;
  std::string align;
  std::string layoutFile;
  WidthUnit unit = WidthUnit::kGbkBytes;

  void AddTo(CLI::App& parser) {
    AddDelimiter(parser, delimiter);
    parser.add_option("--widths", widths, "Widths of the columns, with commas between them")->type_name("10,8,...");
    parser.add_option("--align", align, "A letter for each column: l left (default), r right, 0 right with zeros")
        ->type_name("lr...");
    AddWidthUnit(parser, unit);
    parser.add_option("--layout", layoutFile, "Read widths, letters and unit from a file")->type_name("FILE");
  }

  // Nothing when neither widths nor a file are given.
  std::optional<FixedLayout> Given(Encoding encoding) const {
    if (!widths.empty() && !layoutFile.empty()) {
      throw UnusableArguments("--widths and --layout do not go together");
    }
    if (!layoutFile.empty()) {
      return LayoutFromText(Decode(encoding, ReadWholeFile(PathFromUtf8(layoutFile))));
    }
    if (widths.empty()) {
      return std::nullopt;
    }
    return UsableOrThrow([this] {
      FixedLayout layout{.unit = unit};
      for (const std::size_t width : ParseNumbers(FromArgument(widths))) {
        layout.columns.push_back({.width = width});
      }
      return layout;
    });
  }

  void SetAlignsOf(FixedLayout& layout) const {
    UsableOrThrow([&] {
      SetAligns(layout, FromArgument(align));
      return 0;
    });
  }
};

FixedLayout FoundLayout(BatchContext& context, const LayoutOptions& options, const RecordFormat& format) {
  context.input.MakeRewindable(context.progress);
  RecordReader records(context.input, format, context.progress);
  FixedLayout layout = FindLayout(records, TextWidth(context.encoding, options.unit), options.unit);
  context.input.Rewind();
  return layout;
}

BatchWork ConfigureToFixedWidth(CLI::App& parser) {
  struct Options {
    LayoutOptions layout;
    std::string saveLayout;
    bool endMark = false;
  };
  const auto options = std::make_shared<Options>();
  options->layout.AddTo(parser);
  parser.add_option("--save-layout", options->saveLayout, "Write the layout, found or given, to a file too")
      ->type_name("FILE");
  parser.add_flag("--ctrl-z", options->endMark, "Write Ctrl-Z behind the last record");
  return [options](BatchContext& context) {
    const RecordFormat format = FormatOfArgument(options->layout.delimiter, context.encoding);
    const auto given = options->layout.Given(context.encoding);
    FixedLayout layout = given ? *given : FoundLayout(context, options->layout, format);
    options->layout.SetAlignsOf(layout);
    layout.endMark = layout.endMark || options->endMark;
    RecordReader records(context.input, format, context.progress);
    LineWriter writer(context.output);
    WriteFixedWidth(records, writer, layout, context.encoding);
    writer.Flush();
    if (!options->saveLayout.empty()) {
      context.openFurtherOutput(PathFromUtf8(options->saveLayout))
          .Write(Encode(context.encoding, LayoutToText(layout)));
    }
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureFromFixedWidth(CLI::App& parser) {
  const auto options = std::make_shared<LayoutOptions>();
  options->AddTo(parser);
  return [options](BatchContext& context) {
    auto layout = options->Given(context.encoding);
    if (!layout) {
      throw UnusableArguments("--widths or --layout is required");
    }
    options->SetAlignsOf(*layout);
    RecordReader records(context.input, FormatOfLayout(*layout, context.encoding), context.progress);
    LineWriter lines(context.output);
    RecordWriter writer(lines, FormatOfArgument(options->delimiter, context.encoding));
    ReadFixedWidth(records, writer, *layout);
    lines.Flush();
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureSplitColumns(CLI::App& parser) {
  struct Options {
    std::string at;
    std::string delimiter;
    std::string pattern;
    WidthUnit unit = WidthUnit::kGbkBytes;
  };
  const auto options = std::make_shared<Options>();
  parser.add_option("--at", options->at, "Cut behind these places, counted from the line's beginning")
      ->type_name("5,9,...");
  parser.add_option("--delimiter", options->delimiter, "Cut at tab, comma, semicolon, blanks, or a text")
      ->type_name("D");
  parser.add_option("--pattern", options->pattern, "Cut where the regular expression matches")->type_name("P");
  AddWidthUnit(parser, options->unit);
  return [options](BatchContext& context) {
    if (options->at.empty() + options->delimiter.empty() + options->pattern.empty() != 2) {
      throw UnusableArguments("one of --at, --delimiter and --pattern is required");
    }
    RecordFormat format;
    if (!options->at.empty()) {
      format = UsableOrThrow(
          [&] { return FormatOfPositions(ParseNumbers(FromArgument(options->at)), options->unit, context.encoding); });
    } else if (!options->delimiter.empty()) {
      format = FormatOfArgument(options->delimiter, context.encoding);
    } else {
      format = {
          .separation = Separation::kPattern, .text = FromArgument(options->pattern), .encoding = context.encoding};
    }
    RecordReader records(context.input, format, context.progress);
    LineWriter lines(context.output);
    RecordWriter writer(lines, {.encoding = context.encoding});
    CopyRecords(records, writer);
    lines.Flush();
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureColumns(CLI::App& parser) {
  struct Options {
    NewspaperOptions columns;
    std::string cutOff;
    bool back = false;
  };
  const auto options = std::make_shared<Options>();
  NewspaperOptions& set = options->columns;
  const CLI::Range atLeastOne(1UL, 1'000'000UL);
  const CLI::Range atMost(0UL, 1'000'000UL);
  parser.add_option("--count", set.count, "How many columns")->required()->check(atLeastOne)->type_name("N");
  parser.add_option("--lines", set.linesPerPage, "Lines of a column on each page; none: one page, even columns")
      ->check(atLeastOne)
      ->type_name("L");
  parser.add_option("--width", set.width, "Width of a column; none: that of its widest line")
      ->check(atLeastOne)
      ->type_name("W");
  parser.add_option("--gap", set.gap, "Blanks between columns, 2 when not given")->check(atMost)->type_name("G");
  parser.add_flag("--across", set.across, "The second line stands beside the first, not below it");
  AddChoice(parser, "--too-wide", set.tooWide,
            {{"wrap", TooWide::kWrap}, {"cut", TooWide::kCut}, {"widen", TooWide::kWiden}},
            "A line wider than the width goes on in the place below (wrap, the default), is cut, or widens its column");
  parser.add_option("--cut-off", options->cutOff, "With --too-wide cut: write line numbers and what was cut to a file")
      ->type_name("FILE");
  parser.add_flag("--back", options->back, "The way back: from columns to lines");
  AddWidthUnit(parser, set.unit);
  return [options](BatchContext& context) {
    if ((options->columns.tooWide == TooWide::kCut) == options->cutOff.empty()) {
      throw UnusableArguments("--too-wide cut and --cut-off go together: nothing is cut without a report");
    }
    NewspaperOptions columns = options->columns;
    columns.encoding = context.encoding;
    context.input.MakeRewindable(context.progress);
    const LinePass lines = [&context] {
      context.input.Rewind();
      return std::make_unique<LineReader>(context.input, LineEnds::kCrLfOrLf, context.progress);
    };
    LineWriter writer(context.output);
    if (options->back) {
      TakeColumnsApart(lines, writer, columns);
    } else {
      StringSink nothing;
      LineWriter cutOff(options->cutOff.empty() ? nothing : context.openFurtherOutput(PathFromUtf8(options->cutOff)));
      SetInColumns(lines, writer, cutOff, columns);
      cutOff.Flush();
    }
    writer.Flush();
    return ExitStatus::kDone;
  };
}

struct JoinArguments {
  std::string second;
  std::string key;
  std::string secondKey;
  std::string columns;
  std::string secondColumns;
  std::string delimiter = "tab";
  std::string secondDelimiter;
  std::string unmatchedFirst;
  std::string unmatchedSecond;
  JoinOptions join;

  JoinOptions OptionsFor(Encoding encoding) const {
    JoinOptions options = join;
    options.key = FromArgument(key);
    options.secondKey = FromArgument(secondKey);
    options.columns = FromArgument(columns);
    options.secondColumns = FromArgument(secondColumns);
    options.format = FormatOfArgument(delimiter, encoding);
    options.secondFormat = FormatOfArgument(secondDelimiter.empty() ? delimiter : secondDelimiter, encoding);
    return options;
  }
};

void RunJoin(BatchContext& context, const JoinArguments& arguments) {
  const JoinOptions options = arguments.OptionsFor(context.encoding);
  BatchInput secondInput(PathFromUtf8(arguments.second));
  secondInput.MakeRewindable(context.progress);
  context.input.MakeRewindable(context.progress);
  const auto tableOf = [&context](BatchInput& input, const RecordFormat& format) -> OpenTable {
    return [&context, &input, &format] {
      input.Rewind();
      return RecordReader(input, format, context.progress);
    };
  };
  LineWriter joined(context.output);
  std::optional<LineWriter> lists[2];
  const std::string* files[] = {&arguments.unmatchedFirst, &arguments.unmatchedSecond};
  for (std::size_t i = 0; i < 2; ++i) {
    if (!files[i]->empty()) {
      lists[i].emplace(context.openFurtherOutput(PathFromUtf8(*files[i])));
    }
  }
  const auto listOf = [&lists](std::size_t i) { return lists[i] ? &*lists[i] : nullptr; };
  UsableOrThrow([&] {
    return JoinTables(tableOf(context.input, options.format), tableOf(secondInput, options.secondFormat), options,
                      {joined, listOf(0), listOf(1)}, context.progress);
  });
  joined.Flush();
  for (auto& list : lists) {
    if (list) {
      list->Flush();
    }
  }
}

BatchWork ConfigureJoin(CLI::App& parser) {
  const auto arguments = std::make_shared<JoinArguments>();
  JoinOptions& join = arguments->join;
  const std::string names = "by number, letter or header, with commas between them";
  parser.add_option("SECOND", arguments->second, "File with the second table")->required();
  parser.add_option("--key", arguments->key, "Columns that are compared, " + names)->required()->type_name("C");
  parser.add_option("--second-key", arguments->secondKey, "Those of the second table, when not the same")
      ->type_name("C");
  AddChoice(
      parser, "--kind", join.kind,
      {{"inner", JoinKind::kInner}, {"left", JoinKind::kLeft}, {"right", JoinKind::kRight}, {"full", JoinKind::kFull}},
      "Rows without a partner: of neither table (inner, the default), of the first, the second, both");
  AddDelimiter(parser, arguments->delimiter);
  parser.add_option("--second-delimiter", arguments->secondDelimiter, "That of the second table, when not the same")
      ->type_name("D");
  parser.add_flag("--header", join.hasHeader, "The first record of each table names the columns");
  parser.add_flag("--ignore-case", join.comparison.ignoreCase, "Keys: capital and small letters are the same");
  parser.add_flag("--ignore-blanks", join.comparison.ignoreBlanks, "Keys: blanks do not count, wherever they stand");
  parser.add_flag("--ignore-width", join.comparison.ignoreWidth, "Keys: full-width and half-width are the same");
  parser.add_option("--columns", arguments->columns, "Columns of the first table that come out: all when not given")
      ->type_name("C");
  parser.add_option("--second-columns", arguments->secondColumns, "Those of the second: all but its key")
      ->type_name("C");
  parser.add_option("--unmatched-first", arguments->unmatchedFirst, "Write its rows without a partner to a file")
      ->type_name("FILE");
  parser.add_option("--unmatched-second", arguments->unmatchedSecond, "The same of the second table")
      ->type_name("FILE");
  return [arguments](BatchContext& context) {
    RunJoin(context, *arguments);
    return ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> TableBatchCommands() {
  return {
      {.name = "columns",
       .description = "Set lines in columns side by side, or take such columns apart",
       .example = "scrivanta-batch columns --count 3 --lines 50 --gap 4 names.txt -o pages.txt",
       .configure = ConfigureColumns},
      {.name = "split-columns",
       .description = "Split lines into a table with tabs",
       .example = "scrivanta-batch split-columns --delimiter comma list.csv -o table.txt",
       .configure = ConfigureSplitColumns},
      {.name = "to-fixed-width",
       .description = "Turn delimited records into records of fixed widths",
       .example = "scrivanta-batch to-fixed-width --widths 10,8 --align lr table.txt -o fixed.txt",
       .configure = ConfigureToFixedWidth},
      {.name = "from-fixed-width",
       .description = "Turn records of fixed widths into delimited ones",
       .example = "scrivanta-batch from-fixed-width --widths 10,8 --align lr fixed.txt -o table.txt",
       .configure = ConfigureFromFixedWidth},
      {.name = "join",
       .description = "Join two tables on their keys",
       .example = "scrivanta-batch join --key 1 --kind left people.txt phones.txt -o joined.txt",
       .configure = ConfigureJoin},
  };
}

}  // namespace scrivanta
