#include <memory>
#include <string>
#include <string_view>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "batch/BatchCommand.h"
#include "batch/ReplaceInFiles.h"
#include "batch/TextInput.h"
#include "regexp/MultiReplace.h"
#include "regexp/RegExp.h"
#include "regexp/RegExpExecute.h"
#include "regexp/RegExpExtract.h"
#include "regexp/RegExpReplace.h"
#include "text/ExplainedError.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

std::u16string FromArgument(const std::string& argument) {
  return Decode(Encoding::kUtf8, argument);
}

void WriteText(BatchContext& context, std::u16string_view text) {
  context.output.Write(Encode(context.encoding, text));
}

// Writes results of an extraction, a line break between them, as they come.
class ResultWriter {
 public:
  explicit ResultWriter(BatchContext& context) : context_(context) {}

  void Add(std::u16string_view result) {
    if (any_) {
      text_ += u"\r\n";
    }
    any_ = true;
    text_ += result;
    if (text_.size() > kUnitsPerWrite) {
      Flush();
    }
  }
  void Flush() {
    bytes_.clear();
    EncodeAppend(context_.encoding, text_, bytes_);
    context_.output.Write(bytes_);
    text_.clear();
  }
  bool any() const noexcept { return any_; }

 private:
  static constexpr std::size_t kUnitsPerWrite = 16 * 1024;

  BatchContext& context_;
  std::u16string text_;
  std::string bytes_;
  bool any_ = false;
};

// A JSON string in UTF-8. Half of a pair, or a byte that is no text, becomes an escape, which is the one way to write
// it.
std::string JsonString(std::u16string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    std::size_t end = 0;
    while (end < text.size() && !IsSurrogate(text[end])) {
      ++end;
    }
    if (end > 0) {
      const std::string quoted = nlohmann::json(Encode(Encoding::kUtf8, text.substr(0, end))).dump();
      json.append(quoted, 1, quoted.size() - 2);
    } else if (text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1])) {
      end = 2;
      json += Encode(Encoding::kUtf8, text.substr(0, end));
    } else {
      end = 1;
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(text[0]));
      json += escape;
    }
    text.remove_prefix(end);
  }
  return json + "\"";
}

std::string JsonOf(const RegExpMatch& match) {
  std::string groups;
  for (const auto& group : match.groups) {
    groups += groups.empty() ? "" : ",";
    groups += group ? JsonString(*group) : "null";
  }
  return "{\"firstIndex\":" + std::to_string(match.start) + ",\"length\":" + std::to_string(match.value.size()) +
         ",\"value\":" + JsonString(match.value) + ",\"groups\":[" + groups + "]}\n";
}

struct ExecuteArguments {
  std::string pattern;
  std::string replacement;
  bool replaces = false;
  RegExpExecuteOptions options;
};

ExitStatus ListMatches(const ExecuteArguments& arguments, BatchContext& context) {
  const auto regExp = BuiltInRegExpEngine().Compile(FromArgument(arguments.pattern),
                                                    {arguments.options.ignoreCase, arguments.options.multiLine});
  const std::u16string text = TextInput(context).ReadAll();
  bool found = false;
  regExp->Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        found = true;
        context.output.Write(JsonOf(match));
        return arguments.options.global;
      },
      context.progress);
  return found ? ExitStatus::kDone : ExitStatus::kNothingFound;
}

ExitStatus ReplaceMatches(const ExecuteArguments& arguments, BatchContext& context) {
  std::u16string text = TextInput(context).ReadAll();
  const MatchList matches = RegExpExecute(BuiltInRegExpEngine(), text, FromArgument(arguments.pattern),
                                          FromArgument(arguments.replacement), arguments.options, context.progress);
  WriteText(context, text);
  return matches.found() ? ExitStatus::kDone : ExitStatus::kNothingFound;
}

BatchWork ConfigureExecute(CLI::App& parser) {
  const auto arguments = std::make_shared<ExecuteArguments>();
  parser.add_option("--pattern", arguments->pattern, "Regular expression")->required()->type_name("P");
  parser.add_flag("--ignore-case", arguments->options.ignoreCase, "Take upper and lower case for the same");
  parser.add_flag("--multi-line", arguments->options.multiLine, "Let ^ and $ hold at every line");
  parser.add_flag("--global", arguments->options.global, "Every match, not only the first");
  CLI::Option* replacement =
      parser.add_option("--replacement", arguments->replacement, "Write the text with every match replaced by this")
          ->type_name("R");
  return [arguments, replacement](BatchContext& context) {
    return replacement->count() > 0 && FromArgument(arguments->replacement) != kNoReplacement
               ? ReplaceMatches(*arguments, context)
               : ListMatches(*arguments, context);
  };
}

struct ExtractArguments {
  std::string pattern;
  std::string groups;
  std::string separator;
  bool ignoreCase = false;
  bool repeat = false;
};

BatchWork ConfigureExtract(CLI::App& parser) {
  const auto arguments = std::make_shared<ExtractArguments>();
  parser.add_option("--pattern", arguments->pattern, "Regular expression")->required()->type_name("P");
  parser.add_flag("--ignore-case", arguments->ignoreCase, "Take upper and lower case for the same");
  parser.add_flag("--repeat", arguments->repeat, "Extract again from every result until nothing changes");
  parser.add_option("--groups", arguments->groups, "Groups to take instead of the whole match, such as 1\\2")
      ->type_name("LIST");
  parser.add_option("--separator", arguments->separator, "What stands between the groups")->type_name("S");
  return [arguments](BatchContext& context) {
    const RegExpExtractOptions options{.ignoreCase = arguments->ignoreCase,
                                       .repeat = arguments->repeat,
                                       .groupList = FromArgument(arguments->groups),
                                       .groupSeparator = FromArgument(arguments->separator)};
    TextInput input(context);
    RegExpExtractor extractor(BuiltInRegExpEngine(), FromArgument(arguments->pattern), options, input);
    ResultWriter writer(context);
    // A match at the end of a piece is empty, and so is none of the results.
    input.Visit(extractor.StaysInLine(), [&](std::u16string_view piece, bool) {
      extractor.VisitResults(piece, [&writer](std::u16string_view result) { writer.Add(result); });
    });
    writer.Flush();
    return writer.any() ? ExitStatus::kDone : ExitStatus::kNothingFound;
  };
}

struct ReplaceArguments {
  std::string pattern;
  std::string replacement;
  bool ignoreCase = false;
  bool firstOnly = false;
  bool singleLine = false;
};

BatchWork ConfigureReplace(CLI::App& parser) {
  const auto arguments = std::make_shared<ReplaceArguments>();
  CLI::Option* pattern = parser.add_option("--pattern", arguments->pattern, "Regular expression")->type_name("P");
  pattern->needs(
      parser.add_option("--replacement", arguments->replacement, "What takes its place; \\1 or $1 stands for a group")
          ->type_name("R"));
  parser.add_flag("--ignore-case", arguments->ignoreCase, "Take upper and lower case for the same");
  parser.add_flag("--first-only", arguments->firstOnly, "Replace only the first match");
  parser.add_flag("--single-line", arguments->singleLine, "Let ^ and $ hold at the ends of the text only");
  const ReplaceInFiles inFiles(parser, *pattern);
  return [arguments, inFiles](BatchContext& context) {
    if (inFiles.IsMeant()) {
      const FindState state{.findText = FromArgument(arguments->pattern),
                            .replacement = FromArgument(arguments->replacement),
                            .matchesCase = !arguments->ignoreCase,
                            .isRegExp = true};
      return inFiles.Run(state,
                         {.taken = arguments->firstOnly ? MatchesTaken::kFirst : MatchesTaken::kAll,
                          .multiLine = !arguments->singleLine},
                         context);
    }
    TextReplacer replacer(
        BuiltInRegExpEngine(), FromArgument(arguments->pattern), FromArgument(arguments->replacement),
        {.ignoreCase = arguments->ignoreCase, .global = !arguments->firstOnly, .multiLine = !arguments->singleLine});
    TextInput input(context);
    input.Visit(replacer.StaysInLine(), [&](std::u16string_view piece, bool isLast) {
      WriteText(context, replacer.Replace(piece, input, isLast));
    });
    return ExitStatus::kDone;
  };
}

struct MultiReplaceArguments {
  std::string find;
  std::string replace;
  bool ignoreCase = false;
};

MultiReplace MakeMultiReplace(const MultiReplaceArguments& arguments) {
  try {
    return {FromArgument(arguments.find), FromArgument(arguments.replace), arguments.ignoreCase};
  } catch (const ExplainedError& error) {
    throw UnusableArguments(error.what());
  }
}

BatchWork ConfigureMultiReplace(CLI::App& parser) {
  const auto arguments = std::make_shared<MultiReplaceArguments>();
  CLI::Option* find = parser.add_option("--find", arguments->find, "Texts to find, separated by |")->type_name("LIST");
  find->needs(
      parser.add_option("--replace", arguments->replace, "What takes their places, separated by |")->type_name("LIST"));
  parser.add_flag("--ignore-case", arguments->ignoreCase, "Take upper and lower case for the same");
  const ReplaceInFiles inFiles(parser, *find);
  return [arguments, inFiles](BatchContext& context) {
    if (inFiles.IsMeant()) {
      const FindState state{.findText = FromArgument(arguments->find),
                            .replacement = FromArgument(arguments->replace),
                            .matchesCase = !arguments->ignoreCase};
      return inFiles.Run(state, {}, context);
    }
    const MultiReplace replace = MakeMultiReplace(*arguments);
    std::u16string text = TextInput(context).ReadAll();
    replace.Apply(text, context.progress);
    WriteText(context, text);
    return ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> RegExpBatchCommands() {
  return {
      {.name = "regexp-execute",
       .description = "List the matches of a regular expression, one JSON object a line",
       .example = R"x(scrivanta-batch regexp-execute --pattern "\d+" --global report.txt)x",
       .configure = ConfigureExecute},
      {.name = "regexp-extract",
       .description = "Extract the text of all matches of a regular expression",
       .example =
           R"x(scrivanta-batch regexp-extract --pattern "(\w+)@(\w+)" --groups "2\1" --separator ": " mail.txt)x",
       .configure = ConfigureExtract},
      {.name = "regexp-replace",
       .description = "Replace the matches of a regular expression, in a text or in many files",
       .example = R"x(scrivanta-batch regexp-replace --pattern "^(\d+) " --replacement "\1. " list.txt -o list.txt)x",
       .configure = ConfigureReplace},
      {.name = "multi-replace",
       .description = "Replace several plain texts, in a text or in many files",
       .example =
           "scrivanta-batch multi-replace --find 'colour|grey' --replace 'color|gray' book.txt -o book.txt\n"
           "  scrivanta-batch multi-replace --in-files --find 2025 --replace 2026 --recursive reports --undo kept\n"
           "  scrivanta-batch multi-replace --undo kept",
       .configure = ConfigureMultiReplace},
  };
}

}  // namespace scrivanta
