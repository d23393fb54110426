#include "batch/RunBatch.h"

#include <algorithm>
#include <deque>
#include <map>
#include <new>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "batch/OutputFile.h"
#include "batch/TerminalProgress.h"
#include "batch/Version.h"
#include "regexp/RegExpErrors.h"

namespace scrivanta {

namespace {

struct CommonOptions {
  std::string input;
  std::string output;
  Encoding encoding = Encoding::kGbk;
  bool noProgress = false;
};

struct ConfiguredCommand {
  CommonOptions options;
  BatchWork work;
  bool takesInput = true;
};

void AddCommonOptions(CLI::App& parser, CommonOptions& options) {
  parser.add_option("-o,--output", options.output, "File to write, may be the input; none: standard output")
      ->type_name("OUTPUT");
  AddChoice(parser, "--encoding", options.encoding, {{"gbk", Encoding::kGbk}, {"utf-8", Encoding::kUtf8}},
            "Encoding of input and output: gbk (default) or utf-8");
  parser.add_flag("--progress")->description("Show a bar on standard error when that is a terminal: so by default");
  parser.add_flag("--no-progress", options.noProgress, "Show none");
}

// Adds a command to the program's parser; the options stand in configured, which must not move.
void AddCommand(CLI::App& program, const BatchCommand& command, ConfiguredCommand& configured) {
  CLI::App* parser = program.add_subcommand(command.name, command.description);
  parser->footer("Example:\n  " + command.example);
  configured.takesInput = command.takesInput;
  if (command.takesInput) {
    // Before what positional arguments the command may have beside it.
    parser->add_option("INPUT", configured.options.input, "File to read; \"-\" or none: standard input");
  }
  configured.work = command.configure(*parser);
  AddCommonOptions(*parser, configured.options);
}

// The option that an argument names, with its name alone, if it takes a value.
const CLI::Option* ValueOption(const CLI::App& command, const std::string& argument) {
  const CLI::Option* option = argument.starts_with("-") ? command.get_option_no_throw(argument) : nullptr;
  return option != nullptr && option->get_items_expected_min() > 0 ? option : nullptr;
}

// The arguments with "--name=" taken apart into the name and an empty value. The parser would take the next argument
// for the value.
std::vector<std::string> WithEmptyValues(const CLI::App& program, std::vector<std::string> arguments) {
  const auto commands = program.get_subcommands(
      [&arguments](const CLI::App* command) { return !arguments.empty() && command->get_name() == arguments.front(); });
  if (commands.empty()) {
    return arguments;
  }
  const CLI::App& command = *commands.front();
  std::vector<std::string> whole;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string& argument = arguments[i];
    if (ValueOption(command, argument) != nullptr && i + 1 < arguments.size()) {
      whole.push_back(std::move(argument));
      whole.push_back(std::move(arguments[++i]));
    } else if (argument.starts_with("--") && argument.ends_with("=") &&
               ValueOption(command, argument.substr(0, argument.size() - 1)) != nullptr) {
      argument.pop_back();
      whole.push_back(std::move(argument));
      whole.emplace_back();
    } else {
      whole.push_back(std::move(argument));
    }
  }
  return whole;
}

// What the parser has to say, as a sentence: its own words for some faults are rather a programmer's.
std::string ParserMessage(const CLI::ParseError& error) {
  const std::string message = error.what();
  const auto behind = [&message](std::string_view beginning) { return message.substr(beginning.size()); };
  constexpr std::string_view kNotConverted = "Could not convert: ";
  if (message.starts_with(kNotConverted)) {
    return "this value cannot be used: " + behind(kNotConverted);
  }
  // "--order: 1 required down|up missing"
  constexpr std::string_view kRequired = ": 1 required ";
  constexpr std::string_view kMissing = " missing";
  const std::size_t required = message.find(kRequired);
  if (required != std::string::npos && message.ends_with(kMissing)) {
    const std::size_t begin = required + kRequired.size();
    return message.substr(0, required) +
           " needs a value: " + message.substr(begin, message.size() - kMissing.size() - begin);
  }
  // "--block-size: Value 5 not in range 8 to 99"
  constexpr std::string_view kNotInRange = " not in range ";
  const std::size_t range = message.find(kNotInRange);
  if (range != std::string::npos) {
    return message.substr(0, range) + " is not in the range " + message.substr(range + kNotInRange.size());
  }
  return message;
}

void Complain(std::string reason, const BatchStreams& streams) {
  std::replace(reason.begin(), reason.end(), '\n', ' ');
  streams.errors << "scrivanta-batch: " << reason << '\n';
}

ExitStatus RunCommand(const ConfiguredCommand& command, const BatchStreams& streams) {
  const CommonOptions& options = command.options;
  TerminalProgress progress(streams.errors, streams.errorsAreTerminal && !options.noProgress, streams.interrupted);
  std::deque<OutputFile> files;
  Spool toStandardOutput;
  ExitStatus status = ExitStatus::kDone;
  {
    // The input is closed before the outputs are put in place: it may be one of them.
    MemorySource nothing("");
    ByteSource& stream = command.takesInput ? streams.input : nothing;
    std::optional<BatchInput> input;
    if (options.input.empty() || options.input == "-") {
      input.emplace(stream);
    } else {
      input.emplace(PathFromUtf8(options.input));
    }
    const auto openOutput = [&files](const std::filesystem::path& path) -> ByteSink& {
      return files.emplace_back(path);
    };
    ByteSink& output = options.output.empty() ? toStandardOutput : openOutput(PathFromUtf8(options.output));
    BatchContext context{.input = *input,
                         .output = output,
                         .encoding = options.encoding,
                         .progress = progress,
                         .openFurtherOutput = openOutput,
                         .outputFiles = files.empty() ? std::vector<std::filesystem::path>() : files.front().Files(),
                         .complain = [&streams](const std::string& reason) { Complain(reason, streams); }};
    status = command.work(context);
  }
  for (OutputFile& file : files) {
    file.Prepare();
  }
  for (OutputFile& file : files) {
    file.Commit();
  }
  CopyBytes(toStandardOutput, streams.output);
  return status;
}

int Fail(ExitStatus status, const std::string& reason, const BatchStreams& streams) {
  Complain(reason, streams);
  return static_cast<int>(status);
}

int RunReportingFailure(const ConfiguredCommand& command, const BatchStreams& streams) {
  try {
    return static_cast<int>(RunCommand(command, streams));
  } catch (const UnusableArguments& error) {
    return Fail(ExitStatus::kUnusableArguments, error.what(), streams);
  } catch (const RegExpSyntaxError& error) {
    return Fail(ExitStatus::kUnusableArguments, error.what(), streams);
  } catch (const Interrupted&) {
    return Fail(ExitStatus::kFailed, "interrupted", streams);
  } catch (const std::bad_alloc&) {
    return Fail(ExitStatus::kFailed, "not enough memory", streams);
  } catch (const std::exception& error) {
    return Fail(ExitStatus::kFailed, streams.interrupted ? "interrupted" : error.what(), streams);
  }
}

}  // namespace

std::vector<BatchCommand> BatchCommands() {
  std::vector<BatchCommand> all;
  for (auto list : {LineBatchCommands(), RegExpBatchCommands(), FileBatchCommands(), TableBatchCommands(),
                    PinyinBatchCommands(), CipherBatchCommands(), ContactBatchCommands(), CalendarBatchCommands(),
                    DatabaseBatchCommands(), SystemBatchCommands(), WindowsBatchCommands()}) {
    std::move(list.begin(), list.end(), std::back_inserter(all));
  }
  return all;
}

std::filesystem::path PathFromUtf8(std::string_view argument) {
  return std::u8string(argument.begin(), argument.end());
}

int RunBatch(const std::vector<std::string>& arguments, const BatchStreams& streams) {
  CLI::App program("Text commands on files, for scripts and for documents too large for a window.", "scrivanta-batch");
  program.footer(
      "Each command: scrivanta-batch COMMAND [OPTIONS] [INPUT] [-o OUTPUT]; see scrivanta-batch COMMAND --help.\n"
      "Exit status: 0 done; 1 done, nothing was found; 2 the arguments cannot be used; 3 the work failed.\n"
      "Example:\n  scrivanta-batch trim-lines report.txt -o report.txt");
  program.require_subcommand(0, 1);
  program.get_formatter()->label("SUBCOMMAND", "COMMAND");
  program.set_version_flag("--version", "scrivanta-batch " + std::string(kVersion));
  std::map<std::string, ConfiguredCommand> commands;
  for (const BatchCommand& command : BatchCommands()) {
    AddCommand(program, command, commands[command.name]);
  }
  try {
    std::vector<std::string> whole = WithEmptyValues(program, arguments);
    std::reverse(whole.begin(), whole.end());  // as the parser takes them
    program.parse(std::move(whole));
  } catch (const CLI::CallForHelp&) {
    streams.output.Write(program.help());
    return static_cast<int>(ExitStatus::kDone);
  } catch (const CLI::CallForVersion& version) {
    streams.output.Write(std::string(version.what()) + "\n");
    return static_cast<int>(ExitStatus::kDone);
  } catch (const CLI::ParseError& error) {
    return Fail(ExitStatus::kUnusableArguments, ParserMessage(error), streams);
  }
  if (program.get_subcommands().empty()) {
    return Fail(ExitStatus::kUnusableArguments, "a COMMAND is required, see scrivanta-batch --help", streams);
  }
  return RunReportingFailure(commands.at(program.get_subcommands().front()->get_name()), streams);
}

}  // namespace scrivanta
