#include "text/LineText.h"

#include <algorithm>

namespace scrivanta {

namespace {

constexpr std::u16string_view kBreak = u"\r\n";

// One without a carriage return before it.
std::size_t FindLoneLineFeed(std::u16string_view text, std::size_t from) {
  std::size_t found = text.find(u'\n', from);
  while (found != std::u16string_view::npos && found > 0 && text[found - 1] == u'\r') {
    found = text.find(u'\n', found + 1);
  }
  return found;
}

}  // namespace

std::u16string WithReplaced(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
  std::u16string result;
  for (;;) {
    const std::size_t found = text.find(from);
    result += text.substr(0, found);
    if (found == std::u16string_view::npos) {
      return result;
    }
    result += to;
    text.remove_prefix(found + from.size());
  }
}

void AppendLine(std::u16string& joined, std::u16string_view line) {
  if (!joined.empty()) {
    joined += kBreak;
  }
  joined += line;
}

std::u16string JoinLines(const std::vector<std::u16string>& lines) {
  std::size_t size = 0;
  for (const std::u16string& line : lines) {
    size += line.size() + kBreak.size();
  }
  std::u16string joined;
  joined.reserve(size);
  for (const std::u16string& line : lines) {
    AppendLine(joined, line);
  }
  return joined;
}

std::vector<std::u16string> SplitLines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kBreak), text.size());
    if (end > 0) {
      lines.emplace_back(text.substr(0, end));
    }
    text.remove_prefix(std::min(end + kBreak.size(), text.size()));
  }
  return lines;
}

std::optional<std::size_t> BeginOfLine(std::u16string_view text, long long number) {
  if (number < 1) {
    return std::nullopt;
  }
  std::size_t begin = 0;
  for (long long line = 1; line < number; ++line) {
    const std::size_t lineBreak = text.find(kBreak, begin);
    if (lineBreak == std::u16string_view::npos) {
      return std::nullopt;
    }
    begin = lineBreak + kBreak.size();
  }
  return begin;
}

std::u16string TableLine(std::initializer_list<std::u16string_view> fields) {
  std::u16string line;
  for (const std::u16string_view field : fields) {
    for (const char16_t c : field) {
      line += c == u'\t' || c == u'\r' || c == u'\n' ? u' ' : c;
    }
    line += u'\t';
  }
  line.pop_back();
  return line + u"\r\n";
}

std::string WithLineFeedsOnly(std::string text) {
  if (text.find('\r') == std::string::npos) {
    return text;
  }
  std::string unified;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      unified += text[i];
    } else if (i + 1 == text.size() || text[i + 1] != '\n') {
      unified += '\n';
    }
  }
  return unified;
}

std::u16string WithFullLineBreaks(std::u16string text) {
  std::size_t lineFeed = FindLoneLineFeed(text, 0);
  if (lineFeed == std::u16string::npos) {
    return text;
  }
  std::u16string result;
  result.reserve(text.size() + text.size() / 16);
  std::size_t copied = 0;  // of the text
  for (; lineFeed != std::u16string::npos; lineFeed = FindLoneLineFeed(text, copied)) {
    result.append(text, copied, lineFeed - copied).append(kBreak);
    copied = lineFeed + 1;
  }
  return result.append(text, copied);
}

std::u16string WithOnlyFullLineBreaks(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(kBreak);
    result += text.substr(0, end);
    if (end == std::u16string_view::npos) {
      break;
    }
    result += kBreak;
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(kBreak) ? kBreak.size() : 1);
  }
  return result;
}

}  // namespace scrivanta
