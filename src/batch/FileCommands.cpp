#include <algorithm>
#include <memory>
#include <system_error>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "search/FileReport.h"
#include "search/FileSearch.h"

namespace scrivanta {

namespace {

struct FindInFilesArguments {
  std::string find;
  bool isRegExp = false;
  bool ignoreCase = false;
};

// The arguments that belong to no option.
std::vector<std::filesystem::path> PlacesOf(const CLI::App& parser) {
  std::vector<std::filesystem::path> places;
  for (const std::string& argument : parser.remaining()) {
    if (argument.starts_with("-")) {
      throw UnusableArguments("The following argument was not expected: " + argument);
    }
    places.push_back(PathFromUtf8(argument));
  }
  if (places.empty()) {
    throw UnusableArguments("FOLDER is required");
  }
  for (const std::filesystem::path& place : places) {
    std::error_code error;
    if (!std::filesystem::exists(place, error)) {
      throw FileError(place, error ? error : std::make_error_code(std::errc::no_such_file_or_directory));
    }
  }
  return places;
}

BatchWork ConfigureFindInFiles(CLI::App& parser) {
  const auto arguments = std::make_shared<FindInFilesArguments>();
  parser.add_option("--find", arguments->find, "Text to find")->required()->type_name("T");
  parser.add_flag("--regexp", arguments->isRegExp, "The text is a regular expression");
  parser.add_flag("--ignore-case", arguments->ignoreCase, "Take upper and lower case for the same");
  // Only shown in the help: the parser would take a list of folders apart at brackets and commas, "[a,b]" becoming a
  // and b. What it leaves over is read as it stands.
  parser.add_option("FOLDER", "Folders, with all below them, and files")->expected(0);
  parser.allow_extras();
  return [arguments, &parser](BatchContext& context) {
    const FindState state{.findText = Decode(Encoding::kUtf8, arguments->find),
                          .matchesCase = !arguments->ignoreCase,
                          .isRegExp = arguments->isRegExp};
    if (state.findText.empty()) {
      throw UnusableArguments("--find must not be empty");
    }
    const FileSearchResult result =
        SearchFiles(PlacesOf(parser), FileFilter(u"*.*"), state, BuiltInRegExpEngine(), context.progress);
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
