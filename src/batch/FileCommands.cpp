#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Places.h"
#include "search/FileReport.h"
#include "search/FileSearch.h"

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
    const std::vector<std::filesystem::path> places = PlacesOf(parser);
    CheckPlaces(places, "FOLDER");
    const FileSearchResult result =
        SearchFiles(places, FileFilter(u"*.*"), state, BuiltInRegExpEngine(), context.progress);
    context.output.Write(Encode(context.encoding, ReportOf(result, state.findText)));
    return result.have.empty() ? ExitStatus::kNothingFound : ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> FileBatchCommands() {
  return {{.name = "find-in-files",
           .description = "List the files that contain a text, and those that do not",
           .example = "scrivanta-batch find-in-files --find TODO src docs -o list.txt",
           .configure = ConfigureFindInFiles,
           .takesInput = false}};
}

}  // namespace scrivanta
