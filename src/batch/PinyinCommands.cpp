#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "tables/PinyinInitials.h"

namespace scrivanta {

namespace {

BatchWork ConfigurePinyinInitials(CLI::App& parser) {
  struct Options {
    InitialsOptions initials;
    bool names = false;
    std::string doubtful;
  };
  const auto options = std::make_shared<Options>();
  AddChoice(
      parser, "--place", options->initials.place,
      {{"before", InitialsPlace::kBefore},
       {"behind", InitialsPlace::kBehind},
       {"column", InitialsPlace::kColumn},
       {"only", InitialsPlace::kOnly}},
      "Where the letters go: before the line and a blank (default), behind it and a blank, into a column behind a "
      "tab, or in the place of the line");
  parser.add_flag("--first", options->initials.firstOnly, "Only the first letter");
  parser.add_flag("--small", options->initials.small, "Small letters");
  parser.add_flag("--names", options->names, "The lines begin with the names of people: read surnames as such");
  parser
      .add_option("--doubtful", options->doubtful,
                  "Write what could be read with another letter too to a file: line, position, character, the letter "
                  "taken, the others")
      ->type_name("FILE");
  return [options](BatchContext& context) {
    InitialsOptions initials = options->initials;
    initials.encoding = context.encoding;
    initials.readAs = options->names ? ReadAs::kName : ReadAs::kText;
    std::vector<DoubtfulCharacter> doubtful;
    LineReader reader(context.input, LineEnds::kCrLfOrLf, context.progress);
    LineWriter writer(context.output);
    AddInitials(reader, writer, initials, options->doubtful.empty() ? nullptr : &doubtful);
    writer.Flush();
    if (!options->doubtful.empty()) {
      LineWriter list(context.openFurtherOutput(PathFromUtf8(options->doubtful)));
      for (const DoubtfulCharacter& character : doubtful) {
        list.WriteLine(Encode(context.encoding, DescribeDoubtful(character)));
      }
      list.Flush();
    }
    return ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> PinyinBatchCommands() {
  return {{.name = "pinyin-initials",
           .description = "Add the initial letters of the Chinese characters' readings to lines",
           .example = "scrivanta-batch pinyin-initials --place column --names members.txt -o index.txt",
           .configure = ConfigurePinyinInitials}};
}

}  // namespace scrivanta
