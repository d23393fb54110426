#include "windows/ScriptLine.h"

#include <algorithm>
#include <utility>

#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kBlanks = u" \t";

bool IsLetter(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'_' || c >= 0x80;
}

// What makes the word behind it no command: a member, a variable, a part of a path.
bool IsTiedTo(char16_t c) {
  return std::u16string_view(u".$@#%\\").find(c) != std::u16string_view::npos;
}

std::u16string_view WithoutBlanksBefore(std::u16string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Where what begins with a quotation mark ends; the end of the line where it is not closed.
std::size_t EndOfQuoted(std::u16string_view line, std::size_t start, char16_t quote) {
  return std::min(line.find(quote, start + 1), line.size() - 1) + 1;
}

LinePart Trimmed(std::u16string_view line, std::size_t start, std::size_t end) {
  while (start < end && kBlanks.find(line[start]) != kBlanks.npos) {
    ++start;
  }
  while (start < end && kBlanks.find(line[end - 1]) != kBlanks.npos) {
    --end;
  }
  return {start, end - start};
}

// The arguments between commas, up to the bracket that closes or the end.
std::vector<LinePart> Arguments(std::u16string_view code, std::size_t start, std::size_t& end, char16_t stop) {
  std::vector<LinePart> arguments;
  int depth = 0;
  std::size_t at = start;
  while (at < code.size()) {
    const char16_t c = code[at];
    if (depth == 0 && (c == stop || c == u')' || c == u'}')) {
      break;
    }
    if (c == u'"') {
      at = EndOfQuoted(code, at, c);
      continue;
    }
    depth += c == u'(' ? 1 : (c == u')' ? -1 : 0);
    if (c == u',' && depth == 0) {
      arguments.push_back(Trimmed(code, start, at));
      start = at + 1;
    }
    ++at;
  }
  arguments.push_back(Trimmed(code, start, at));
  end = arguments.back().end();
  return arguments;
}

// The words of a command whose arguments stand in any order, with commas, blanks or quotation marks between them.
std::vector<LinePart> Words(std::u16string_view code, const std::vector<LinePart>& arguments, std::size_t end) {
  constexpr std::u16string_view kBetween = u" \t,\"";
  std::vector<LinePart> words;
  std::size_t at = arguments.front().start;
  while (at < end) {
    const std::size_t start = std::min(code.find_first_not_of(kBetween, at), end);
    at = std::min(code.find_first_of(kBetween, start), end);
    if (start < at) {
      words.push_back({start, at - start});
    }
  }
  return words;
}

}  // namespace

std::vector<CommandInLine> ScriptLines::Next(std::u16string_view line) {
  std::vector<CommandInLine> found;
  if (IsInBlockComment(line)) {
    return found;
  }
  const std::u16string_view code = line.substr(0, EndOfCode(line));
  std::size_t at = 0;
  while (at < code.size()) {
    if (code[at] == u'"') {
      at = EndOfQuoted(code, at, u'"');
      continue;
    }
    if (!IsLetter(code[at])) {
      ++at;
      continue;
    }
    const std::size_t start = at;
    while (at < code.size() && IsLetter(code[at])) {
      ++at;
    }
    const LinePart name{start, at - start};
    const CoordinateCommand* const command = FindCommand(dialect_, name.In(code));
    if (command != nullptr && (start == 0 || !IsTiedTo(code[start - 1]))) {
      found.push_back(CommandAt(code, name, *command));
    }
  }
  return found;
}

CommandInLine ScriptLines::CommandAt(std::u16string_view code, LinePart name, const CoordinateCommand& command) const {
  CommandInLine found{.command = &command, .name = name, .arguments = {}, .end = name.end()};
  std::size_t start = std::min(code.find_first_not_of(kBlanks, name.end()), code.size());
  const bool isCall = start < code.size() && code[start] == u'(';
  const bool hasComma = start < code.size() && code[start] == u',';
  const bool isApart = start > name.end();
  if (start == code.size() || (!isCall && !hasComma && (dialect_ == ScriptDialect::kAutoIt || !isApart))) {
    return found;
  }
  start += isCall || hasComma ? 1 : 0;
  const char16_t stop = dialect_ == ScriptDialect::kQ && !isCall ? u':' : u')';
  found.arguments = Arguments(code, start, found.end, stop);
  if (command.isWordy) {
    found.arguments = Words(code, found.arguments, found.end);
  }
  return found;
}

bool ScriptLines::IsInBlockComment(std::u16string_view line) {
  const std::u16string text = UpperCase(WithoutBlanksBefore(line));
  const bool isAutoIt = dialect_ == ScriptDialect::kAutoIt;
  const bool isAhk = dialect_ == ScriptDialect::kAhk1 || dialect_ == ScriptDialect::kAhk2;
  const bool was = inBlockComment_;
  if (isAutoIt && (text.starts_with(u"#CS") || text.starts_with(u"#COMMENTS-START"))) {
    inBlockComment_ = true;
  } else if (isAutoIt && (text.starts_with(u"#CE") || text.starts_with(u"#COMMENTS-END"))) {
    inBlockComment_ = false;
  } else if (isAhk) {
    const bool begins = text.starts_with(u"/*");
    inBlockComment_ = (was || begins) && text.find(u"*/") == text.npos;
    return was || begins;
  }
  return was || inBlockComment_;
}

std::size_t ScriptLines::EndOfCode(std::u16string_view line) const {
  const bool isQ = dialect_ == ScriptDialect::kQ;
  if (isQ && UpperCase(WithoutBlanksBefore(line)).starts_with(u"REM ")) {
    return 0;
  }
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char16_t c = line[at];
    if (c == u'"' || (c == u'\'' && dialect_ == ScriptDialect::kAutoIt)) {
      at = EndOfQuoted(line, at, c) - 1;
    } else if (isQ ? c == u'\'' || line.substr(at).starts_with(u"//") : c == u';') {
      // In the scripts of the two, a semicolon within a word is no comment.
      if (isQ || dialect_ == ScriptDialect::kAutoIt || at == 0 || kBlanks.find(line[at - 1]) != kBlanks.npos) {
        return at;
      }
    }
  }
  return line.size();
}

std::optional<long long> LiteralNumber(std::u16string_view text) {
  constexpr std::size_t kMostDigits = 9;
  const bool hasSign = text.starts_with(u'-') || text.starts_with(u'+');
  const std::u16string_view digits = WithoutBlanksBefore(text.substr(hasSign ? 1 : 0));
  if (digits.empty() || digits.size() > kMostDigits || digits.find_first_not_of(u"0123456789") != digits.npos) {
    return std::nullopt;
  }
  long long number = 0;
  for (const char16_t digit : digits) {
    number = number * 10 + (digit - u'0');
  }
  return text.front() == u'-' ? -number : number;
}

}  // namespace scrivanta
