#include "search/FileReport.h"

#include <algorithm>

#include "search/FindTokens.h"
#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/Numbers.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kIndent = u"    ";
constexpr std::u16string_view kBeforeLine = u"处，第";

// No line but that of a path may hold the mark.
std::u16string Unmarked(std::u16string_view text) {
  return WithReplaced(text, kPathMark, u"` `");
}

void AppendPath(std::u16string& report, const std::filesystem::path& path) {
  report.append(kPathMark).append(TextOfPath(path)).append(kLineBreak);
}

}  // namespace

std::u16string ReportOf(const FileSearchResult& result, std::u16string_view findText) {
  const std::u16string shown = Unmarked(BoxOfText(findText));
  std::u16string report =
      u"以下文件 含有 查找内容：" + shown + u"（" + DecimalText(result.have.size()) + u"个文件）\r\n";
  for (const FileWithMatches& file : result.have) {
    AppendPath(report, file.path);
    report.append(kIndent).append(DecimalText(file.matches)).append(kBeforeLine).append(DecimalText(file.lineNumber));
    report += u"行：" + Unmarked(file.line);
    report += kLineBreak;
  }
  report += u"\r\n以下文件 不含有 查找内容：" + shown + u"（" + DecimalText(result.haveNot.size()) + u"个文件）\r\n";
  for (const std::filesystem::path& path : result.haveNot) {
    AppendPath(report, path);
  }
  if (result.binaryFiles > 0) {
    report += u"\r\n跳过二进制文件：" + DecimalText(result.binaryFiles) + u"个\r\n";
  }
  if (!result.failures.empty()) {
    report += u"\r\n以下文件或文件夹未能查找：\r\n";
    for (const FileFailure& failure : result.failures) {
      report += u"    " + Unmarked(TextOfPath(failure.path)) + u"：" + failure.reason;
      report += kLineBreak;
    }
  }
  return report;
}

std::optional<ReportedPlace> PlaceAt(std::u16string_view text, std::size_t position) {
  const std::size_t lineBreak = position == 0 ? std::u16string_view::npos : text.rfind(kLineBreak, position - 1);
  if (lineBreak == std::u16string_view::npos) {
    return std::nullopt;
  }
  const std::size_t begin = lineBreak + kLineBreak.size();
  const std::u16string_view line = text.substr(begin, text.find(kLineBreak, begin) - begin);
  const std::size_t number = line.find(kBeforeLine);
  if (!line.starts_with(kIndent) || number == std::u16string_view::npos ||
      line.substr(kIndent.size(), number - kIndent.size()).find_first_not_of(u"0123456789") != line.npos) {
    return std::nullopt;
  }
  const std::size_t before = lineBreak == 0 ? std::u16string_view::npos : text.rfind(kLineBreak, lineBreak - 1);
  const std::size_t pathBegin = before == std::u16string_view::npos ? 0 : before + kLineBreak.size();
  const std::vector<std::filesystem::path> paths =
      PathsOfLines(text.substr(pathBegin, lineBreak - pathBegin), PathLines::kMarked);
  if (paths.empty()) {
    return std::nullopt;
  }
  return ReportedPlace{paths.front(), LeadingWholeNumber(line.substr(number + kBeforeLine.size()))};
}

std::vector<std::filesystem::path> PathsOfLines(std::u16string_view text, PathLines which) {
  std::vector<std::filesystem::path> paths;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    std::u16string_view line = text.substr(0, end);
    const std::size_t mark = line.find(kPathMark);
    if (mark != std::u16string_view::npos) {
      line.remove_prefix(mark + kPathMark.size());
    } else if (which == PathLines::kMarked) {
      line = {};
    }
    if (!line.empty()) {
      paths.push_back(PathOfText(line));
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return paths;
}

}  // namespace scrivanta
