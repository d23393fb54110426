#include <algorithm>
#include <array>
#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Places.h"
#include "system/FileTimesChange.h"
#include "text/AtomicFile.h"
#include "text/ExplainedError.h"
#include "text/LineWriter.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::array<std::string_view, kFileTimeKinds.size()> kKindNames = {"created", "modified", "accessed"};

struct FileTimesArguments {
  // One a kind: what follows its option, or nothing. What is no moment there is a place.
  std::array<std::string, kFileTimeKinds.size()> values;
  std::array<CLI::Option*, kFileTimeKinds.size()> options{};
  std::string shift;
  std::string namePattern;
  std::string filter = "*";
  std::string undoFile;
  WalkOptions walk{.subfolders = false};
  bool dryRun = false;

  bool ChangesNothing() const {
    return std::none_of(options.begin(), options.end(), [](const CLI::Option* option) { return option->count() > 0; });
  }
};

std::optional<FileTimeSource> SourceOf(std::string_view value) {
  const auto name = std::find(kKindNames.begin(), kKindNames.end(), value);
  if (name != kKindNames.end()) {
    return kFileTimeKinds[static_cast<std::size_t>(name - kKindNames.begin())];
  }
  const auto moment = ParseMoment(Decode(Encoding::kUtf8, value));
  return moment ? std::optional<FileTimeSource>(*moment) : std::nullopt;
}

// An option whose value may be left out takes the place behind it for one: that place is moved to the others.
FileTimesRules RulesOf(const FileTimesArguments& arguments, std::vector<std::filesystem::path>& places) {
  FileTimesRules rules;
  bool hasSource = !arguments.shift.empty() || !arguments.namePattern.empty();
  for (const FileTimeKind kind : kFileTimeKinds) {
    const auto index = static_cast<std::size_t>(kind);
    if (arguments.options[index]->count() == 0) {
      continue;
    }
    const std::string& value = arguments.values[index];
    rules[kind] = value.empty() ? FileTimeSource() : SourceOf(value);
    hasSource = hasSource || (!value.empty() && rules[kind]);
    if (!rules[kind]) {
      std::error_code error;
      const std::filesystem::path place = PathFromUtf8(value);
      if (!std::filesystem::exists(place, error)) {
        throw UnusableArguments("--" + std::string(kKindNames[index]) +
                                " takes a moment or the name of another time: " + value);
      }
      places.push_back(place);
      rules[kind] = FileTimeSource();
    }
  }
  if (!hasSource) {
    throw UnusableArguments("a moment, --shift or --from-name is required");
  }
  if (!arguments.shift.empty()) {
    const auto shift = ParseShift(Decode(Encoding::kUtf8, arguments.shift));
    if (!shift) {
      throw UnusableArguments("--shift takes a distance such as +1d12h or -01:30:00: " + arguments.shift);
    }
    rules.shift = *shift;
  }
  if (!arguments.namePattern.empty()) {
    try {
      rules.name.emplace(Decode(Encoding::kUtf8, arguments.namePattern));
    } catch (const ExplainedError& error) {
      throw UnusableArguments(error.what());
    }
  }
  return rules;
}

// The way back stands in its file before anything is changed.
FileTimesPlan PlanOf(const FileTimesArguments& arguments, const CLI::App& parser, Progress& progress) {
  if (arguments.ChangesNothing()) {
    if (arguments.undoFile.empty() || !parser.remaining().empty()) {
      throw UnusableArguments("--created, --modified or --accessed is required, or --undo FILE alone");
    }
    return PlanUndo(ReadWholeFile(PathFromUtf8(arguments.undoFile)), SystemFileTimes(), progress);
  }
  std::vector<std::filesystem::path> places = PlacesOf(parser);
  const FileTimesRules rules = RulesOf(arguments, places);
  CheckPlaces(places, "PATH");
  const FileFilter filter(Decode(Encoding::kUtf8, arguments.filter));
  FileTimesPlan plan = PlanFileTimes(WalkFiles(places, filter, progress, arguments.walk), rules, SystemFileTimes(),
                                     SystemTimeZone(), progress);
  if (!arguments.undoFile.empty() && !arguments.dryRun) {
    ReplaceFileContent(PathFromUtf8(arguments.undoFile), UndoText(plan.entries));
  }
  return plan;
}

ExitStatus RunFileTimes(const FileTimesArguments& arguments, const CLI::App& parser, BatchContext& context) {
  const FileTimesPlan plan = PlanOf(arguments, parser, context.progress);
  const FileTimesOutcome outcome = arguments.dryRun ? FileTimesOutcome{.done = plan.entries, .failures = {}}
                                                    : ApplyFileTimes(plan.entries, SystemFileTimes(), context.progress);
  LineWriter writer(context.output);
  for (const FileTimesEntry& entry : outcome.done) {
    writer.WriteLine(Encode(context.encoding, OldTimesText(entry, SystemTimeZone()) + u"\t" +
                                                  NewTimesText(entry, SystemTimeZone()) + u"\t" +
                                                  TextOfPath(entry.path)));
  }
  writer.Flush();
  for (const auto* failures : {&plan.failures, &outcome.failures}) {
    for (const FileFailure& failure : *failures) {
      context.complain(Encode(Encoding::kUtf8, TextOfPath(failure.path)) + ": " + failure.englishReason);
    }
  }
  if (outcome.stopped) {
    context.complain("interrupted after " + std::to_string(outcome.done.size()) + " files");
  }
  return outcome.stopped || !plan.failures.empty() || !outcome.failures.empty() ? ExitStatus::kFailed
                                                                                : ExitStatus::kDone;
}

BatchWork ConfigureFileTimes(CLI::App& parser) {
  const auto arguments = std::make_shared<FileTimesArguments>();
  constexpr std::array<const char*, kFileTimeKinds.size()> kHelp = {
      "Change the time of creation: \"2020-01-02 03:04:05\", a date or a time alone, or the name of another time; "
      "nothing with --shift or --from-name",
      "Change the time of the last modification", "Change the time of the last access"};
  for (std::size_t index = 0; index < kKindNames.size(); ++index) {
    arguments->options[index] =
        parser.add_option("--" + std::string(kKindNames[index]), arguments->values[index], kHelp[index])
            ->expected(0, 1)
            ->type_name("[MOMENT]");
  }
  parser.add_option("--shift", arguments->shift, "Add this much: +1d12h, -30m, +01:30:00")->type_name("D");
  parser.add_option("--from-name", arguments->namePattern, "Take date and time from the file's name: YYYYMMDD_HHMMSS")
      ->type_name("PATTERN");
  parser.add_option("--pattern", arguments->filter, "The files of the folders that are meant: \"*.jpg;*.png\"")
      ->type_name("P");
  parser.add_flag("--recursive", arguments->walk.subfolders, "All folders below the folders too");
  parser.add_flag("--folders", arguments->walk.folders, "Change the folders themselves too, behind what they hold");
  parser.add_flag("--dry-run", arguments->dryRun, "Only list what would be changed");
  parser
      .add_option("--undo", arguments->undoFile,
                  "Write what takes the change back to this file; alone: take back what the file tells")
      ->type_name("FILE");
  AddPlaces(parser, "PATH", "Files, and folders whose files are meant");
  return [arguments, &parser](BatchContext& context) { return RunFileTimes(*arguments, parser, context); };
}

}  // namespace

std::vector<BatchCommand> SystemBatchCommands() {
  return {{.name = "file-times",
           .description = "Change the times of files, and take the change back",
           .example = "scrivanta-batch file-times photos --modified --from-name YYYYMMDD_HHMMSS --undo back.txt",
           .configure = ConfigureFileTimes,
           .takesInput = false}};
}

}  // namespace scrivanta
