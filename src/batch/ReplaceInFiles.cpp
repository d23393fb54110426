#include "batch/ReplaceInFiles.h"

#include <algorithm>

#include <CLI/CLI.hpp>

#include "batch/Places.h"
#include "search/FileReplace.h"
#include "search/KeptFiles.h"
#include "search/ReplacePlan.h"
#include "text/ExplainedError.h"
#include "text/FileWalk.h"
#include "text/LineText.h"
#include "text/LineWriter.h"
#include "text/PlatformFile.h"
#include "text/SameFile.h"

namespace scrivanta {

namespace {

std::string Utf8Of(const std::filesystem::path& path) {
  return Encode(Encoding::kUtf8, TextOfPath(path));
}

// What a text is on its lines, each with a sign before it.
std::u16string Marked(std::u16string_view sign, std::u16string_view text) {
  const std::u16string behindBreak = u"\r\n" + std::u16string(sign);
  return std::u16string(sign) + WithReplaced(WithOnlyFullLineBreaks(text), u"\r\n", behindBreak);
}

void ListPlaces(const ReplacePlan& plan, BatchContext& context) {
  LineWriter writer(context.output);
  const auto write = [&](const std::u16string& line) { writer.WriteLine(Encode(context.encoding, line)); };
  for (const PlannedFile& file : plan.files) {
    const std::u16string path = TextOfPath(file.path);
    for (const PlannedPlace& place : file.shown) {
      write(path + u":" + Decode(Encoding::kUtf8, std::to_string(place.line)));
      write(Marked(u"- ", place.before));
      write(Marked(u"+ ", place.after));
    }
    if (const std::size_t more = file.ticks.size() - file.shown.size(); more > 0) {
      write(path + Decode(Encoding::kUtf8, ": and " + std::to_string(more) + " places more"));
    }
  }
  writer.Flush();
}

ReplaceRule RuleOf(const FindState& state, PatternScope scope) {
  try {
    return {state, BuiltInRegExpEngine(), scope};
  } catch (const ExplainedError& error) {
    throw UnusableArguments(error.what());
  }
}

}  // namespace

ReplaceInFiles::ReplaceInFiles(CLI::App& parser, CLI::Option& find) : parser_(parser), find_(find) {
  parser.add_flag("--in-files", options_->inFiles,
                  "Replace in files and folders, each file in its own encoding, instead of the input");
  parser
      .add_option("--files", options_->filter,
                  "With --in-files: the files of the folders that are meant: \"*.txt;*.log\"")
      ->type_name("PATTERN");
  parser.add_flag("--recursive", options_->recursive, "With --in-files: all folders below the folders too");
  parser.add_flag("--dry-run", options_->dryRun, "With --in-files: only list each place, before and after");
  parser
      .add_option("--undo", options_->undoFolder,
                  "With --in-files: keep the files as they are in this folder, in the place of what it kept before; "
                  "with nothing to find: put back what it keeps")
      ->type_name("FOLDER");
  AddPlaces(parser, "PATH", "With --in-files: files, and folders whose files are meant");
}

bool ReplaceInFiles::IsMeant() const {
  const bool putsBack = !options_->undoFolder.empty() && find_.count() == 0;
  if (!options_->inFiles && !putsBack) {
    for (const char* option : {"--files", "--recursive", "--dry-run", "--undo"}) {
      if (parser_.count(option) > 0) {
        throw UnusableArguments(std::string(option) + " requires --in-files");
      }
    }
    if (!parser_.remaining().empty()) {
      throw UnusableArguments("The following argument was not expected: " + parser_.remaining().front());
    }
  }
  if (!putsBack && find_.count() == 0) {
    throw UnusableArguments(find_.get_name() + " is required");
  }
  return options_->inFiles || putsBack;
}

ExitStatus ReplaceInFiles::Run(const FindState& state, PatternScope scope, BatchContext& context) const {
  return find_.count() > 0 ? Replace(state, scope, context) : PutBack(context);
}

ExitStatus ReplaceInFiles::Replace(const FindState& state, PatternScope scope, BatchContext& context) const {
  std::vector<std::filesystem::path> places = PlacesOf(parser_);
  if (!context.input.path().empty()) {
    places.insert(places.begin(), context.input.path());
  }
  CheckPlaces(places, "PATH");
  const ReplaceRule rule = RuleOf(state, scope);
  FoundFiles found = WalkFiles(places, FileFilter(Decode(Encoding::kUtf8, options_->filter)), context.progress,
                               {.subfolders = options_->recursive});
  DropRepeatedFiles(found.files);
  std::erase_if(found.files, [&context](const std::filesystem::path& file) {
    return std::ranges::any_of(context.outputFiles, [&file](const auto& output) { return IsSameFile(file, output); });
  });
  if (!options_->undoFolder.empty()) {
    DropFilesIn(PathFromUtf8(options_->undoFolder), found.files);
  }
  const ReplacePlan plan = PlanReplacement(found.files, rule, context.progress);
  FileReplaceOutcome outcome;
  if (options_->dryRun) {
    ListPlaces(plan, context);
  } else {
    outcome = CarryOut(plan, rule, PathFromUtf8(options_->undoFolder), context.progress);
    LineWriter writer(context.output);
    for (const FileReplaceOutcome::Changed& file : outcome.changed) {
      writer.WriteLine(std::to_string(file.places) + "\t" + Encode(context.encoding, TextOfPath(file.path)));
    }
    writer.Flush();
  }
  outcome.leftOver.insert(outcome.leftOver.begin(), plan.failures.begin(), plan.failures.end());
  outcome.leftOver.insert(outcome.leftOver.begin(), found.failures.begin(), found.failures.end());
  for (const FileFailure& failure : outcome.leftOver) {
    context.complain(Utf8Of(failure.path) + ": " + failure.englishReason);
  }
  if (!plan.binaries.empty()) {
    context.complain("passed over because they are no text: " + std::to_string(plan.binaries.size()) + " files");
  }
  if (!outcome.leftOver.empty()) {
    return ExitStatus::kFailed;
  }
  return plan.files.empty() ? ExitStatus::kNothingFound : ExitStatus::kDone;
}

ExitStatus ReplaceInFiles::PutBack(BatchContext& context) const {
  if (!context.input.path().empty() || !parser_.remaining().empty()) {
    throw UnusableArguments(find_.get_name() + " is required, or --undo FOLDER alone");
  }
  const std::filesystem::path folder = PathFromUtf8(options_->undoFolder);
  CheckPlaces({folder}, "FOLDER");
  const std::vector<KeptFile> kept = FilesKept(folder);
  LineWriter writer(context.output);
  if (kept.empty()) {
    context.complain("nothing is kept in " + options_->undoFolder);
    return ExitStatus::kNothingFound;
  }
  if (options_->dryRun) {
    for (const KeptFile& file : kept) {
      writer.WriteLine(Encode(context.encoding, TextOfPath(file.path)));
    }
    writer.Flush();
    return ExitStatus::kDone;
  }
  const PutBackOutcome outcome = PutBackKept(folder, context.progress);
  writer.WriteLine("put back " + std::to_string(outcome.restored) + " files");
  writer.Flush();
  for (const FileFailure& failure : outcome.failures) {
    context.complain(Utf8Of(failure.path) + ": " + failure.englishReason);
  }
  if (outcome.untouched > 0) {
    context.complain("interrupted with " + std::to_string(outcome.untouched) + " files to go");
  }
  return outcome.failures.empty() && outcome.untouched == 0 ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace scrivanta
