#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Places.h"
#include "search/FileReport.h"
#include "search/FileSearch.h"
#include "tables/DownloadLinks.h"
#include "tables/FileMerge.h"
#include "text/LineWriter.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

struct FindInFilesArguments {
  std::string find;
  bool isRegExp = false;
  bool ignoreCase = false;
};

BatchWork ConfigureFindInFiles(CLI::App& parser) {
  const auto arguments = std::make_shared<FindInFilesArguments>();
  parser.add_option("--find", arguments->find, "Text to find")->required()->type_name("T");
  parser.add_flag("--regexp", arguments->isRegExp, "The text is a regular expression");
  parser.add_flag("--ignore-case", arguments->ignoreCase, "Take upper and lower case for the same");
  AddPlaces(parser, "FOLDER", "Folders, with all below them, and files");
  return [arguments, &parser](BatchContext& context) {
    const FindState state{.findText = Decode(Encoding::kUtf8, arguments->find),
                          .matchesCase = !arguments->ignoreCase,
                          .isRegExp = arguments->isRegExp};
    if (state.findText.empty()) {
      throw UnusableArguments("--find must not be empty");
    }
    const FileSearchResult result = SearchFiles(ExistingPlacesOf(parser, "FOLDER"), FileFilter(u"*.*"), state,
                                                BuiltInRegExpEngine(), context.progress);
    context.output.Write(Encode(context.encoding, ReportOf(result, state.findText)));
    return result.have.empty() ? ExitStatus::kNothingFound : ExitStatus::kDone;
  };
}

// One failure names all the files: what lacks one of them is not written.
void ThrowFailures(const std::vector<FileFailure>& failures) {
  std::string message;
  for (const FileFailure& failure : failures) {
    message += (message.empty() ? "" : "; ") + Encode(Encoding::kUtf8, TextOfPath(failure.path)) + ": " +
               failure.englishReason;
  }
  if (!message.empty()) {
    throw std::runtime_error(message);
  }
}

BatchWork ConfigureMergeFiles(CLI::App& parser) {
  struct Options {
    std::string pattern;
    bool recursive = false;
    bool titles = false;
  };
  const auto options = std::make_shared<Options>();
  AddPlaces(parser, "PATH", "Files and folders");
  parser.add_option("--pattern", options->pattern, "Which files of a folder, as *.txt;*.log; all without it")
      ->type_name("PATTERN");
  parser.add_flag("--recursive", options->recursive, "The folders below a folder too");
  parser.add_flag("--titles", options->titles, "A line with its name before the lines of each file");
  return [options, &parser](BatchContext& context) {
    const MergePlaces places{.places = ExistingPlacesOf(parser, "PATH"),
                             .pattern = Decode(Encoding::kUtf8, options->pattern),
                             .subfolders = options->recursive,
                             .targets = context.outputFiles};
    const FilesToMerge found = FindFilesToMerge(places, context.progress);
    if (found.targetIsNamed) {
      throw UnusableArguments("the output is one of the files to merge");
    }
    ThrowFailures(found.failures);
    ThrowFailures(MergeTextFiles(found.files, context.output, {.titles = options->titles, .encoding = context.encoding},
                                 context.progress));
    return ExitStatus::kDone;
  };
}

BatchWork ConfigureDownloadList(CLI::App& parser) {
  AddPlaces(parser, "PATH", "Files of any kind, and folders with all below them");
  return [&parser](BatchContext& context) {
    const FoundFiles found =
        WalkFiles(ExistingPlacesOf(parser, "PATH"), FileFilter(u""), context.progress, {.naturalOrder = true});
    ThrowFailures(found.failures);
    DownloadLinks links;
    for (const std::filesystem::path& file : found.files) {
      links.AddFile(file, context.progress);
    }
    LineWriter writer(context.output);
    for (const std::u16string& link : links.links()) {
      writer.WriteLine(Encode(context.encoding, link));
    }
    writer.Flush();
    return links.links().empty() ? ExitStatus::kNothingFound : ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> FileBatchCommands() {
  return {{.name = "find-in-files",
           .description = "List the files that contain a text, and those that do not",
           .example = "scrivanta-batch find-in-files --find TODO src docs -o list.txt",
           .configure = ConfigureFindInFiles,
           .takesInput = false},
          {.name = "merge-files",
           .description = "Write the lines of many files one after the other, each decoded by itself",
           .example = "scrivanta-batch merge-files --pattern '*.txt' --recursive --titles notes -o all.txt",
           .configure = ConfigureMergeFiles,
           .takesInput = false},
          {.name = "download-list",
           .description = "List the addresses in files of any kind, wrapped ones decoded, each once",
           .example = "scrivanta-batch download-list downloads -o list.txt",
           .configure = ConfigureDownloadList,
           .takesInput = false}};
}

}  // namespace scrivanta
