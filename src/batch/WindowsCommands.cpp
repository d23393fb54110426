#include <algorithm>
#include <charconv>
#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/TextInput.h"
#include "text/DecimalText.h"
#include "text/LineWriter.h"
#include "windows/RelativeCoordinates.h"
#include "windows/input/InputScript.h"

namespace scrivanta {

namespace {

struct CoordinateArguments {
  std::string dialect;
  std::string origin;
  bool fromFirst = false;
  bool fromPrevious = false;
};

long long NumberOf(std::string_view text) {
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    throw UnusableArguments("--origin takes two whole numbers: x,y");
  }
  return number;
}

CoordinateOrigin OriginOf(const CoordinateArguments& arguments) {
  const int given =
      (arguments.origin.empty() ? 0 : 1) + (arguments.fromFirst ? 1 : 0) + (arguments.fromPrevious ? 1 : 0);
  if (given != 1) {
    throw UnusableArguments("one of --origin, --from-first and --from-previous is required");
  }
  if (arguments.fromFirst) {
    return FromFirstPoint();
  }
  if (arguments.fromPrevious) {
    return FromPreviousPoint();
  }
  const std::string_view text = arguments.origin;
  const std::size_t comma = std::min(text.find(','), text.size());
  return ScreenPoint{NumberOf(text.substr(0, comma)), NumberOf(text.substr(std::min(comma + 1, text.size())))};
}

ExitStatus RunRelativeCoordinates(const CoordinateArguments& arguments, BatchContext& context) {
  CoordinateOptions options{
      .dialect = ScriptDialect::kPairs, .origin = OriginOf(arguments), .encoding = context.encoding};
  if (arguments.dialect.empty()) {
    context.input.MakeRewindable(context.progress);
    LineReader lines(context.input, LineEnds::kCrLfOrLf, context.progress);
    options.dialect = DialectOf(lines, context.encoding);
    context.input.Rewind();
  } else {
    const auto* const name = std::find(kDialectNames.begin(), kDialectNames.end(), arguments.dialect);
    options.dialect = static_cast<ScriptDialect>(name - kDialectNames.begin());
  }
  LineReader in(context.input, LineEnds::kCrLfOrLf, context.progress);
  LineWriter out(context.output);
  const CoordinateReport report = MakeCoordinatesRelative(in, out, options);
  out.Flush();
  for (const LeftCoordinates& left : report.left) {
    context.complain("line " + std::to_string(left.line) + " left as it is: " + Encode(Encoding::kUtf8, left.text));
  }
  return ExitStatus::kDone;
}

BatchWork ConfigureRelativeCoordinates(CLI::App& parser) {
  const auto arguments = std::make_shared<CoordinateArguments>();
  parser.add_option("--dialect", arguments->dialect, "Family of the script; told by its commands when not given")
      ->check(CLI::IsMember(std::vector<std::string>(kDialectNames.begin(), kDialectNames.end())).description(""))
      ->type_name("autoit|ahk1|ahk2|q|pairs");
  parser.add_option("--origin", arguments->origin, "The point that becomes 0,0")->type_name("x,y");
  parser.add_flag("--from-first", arguments->fromFirst, "The first point of the script becomes 0,0");
  parser.add_flag("--from-previous", arguments->fromPrevious, "Each point counts from the one before it");
  return [arguments](BatchContext& context) { return RunRelativeCoordinates(*arguments, context); };
}

ExitStatus RunListInput(BatchContext& context) {
  const std::u16string script = TextInput(context).ReadAll();
  LineWriter out(context.output);
  for (const InputStepText& step : DescribeSteps(ParseInputScript(script))) {
    out.WriteLine(Encode(context.encoding, DecimalText(step.line) + u"\t" + step.text));
  }
  out.Flush();
  return ExitStatus::kDone;
}

}  // namespace

std::vector<BatchCommand> WindowsBatchCommands() {
  return {{.name = "relative-coordinates",
           .description = "Make the co-ordinates in a script relative to a point",
           .example = "scrivanta-batch relative-coordinates --origin 100,200 clicks.txt -o relative.txt",
           .configure = ConfigureRelativeCoordinates},
          {.name = "list-input",
           .description = "List what lines of keys and mouse would do, without doing it",
           .example = "scrivanta-batch list-input actions.txt -o list.txt",
           .configure = [](CLI::App&) -> BatchWork { return RunListInput; }}};
}

}  // namespace scrivanta
