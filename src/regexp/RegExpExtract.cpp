#include "regexp/RegExpExtract.h"

#include <algorithm>
#include <utility>

#include "regexp/LineBreakEscape.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

std::vector<std::size_t> ReadGroupList(std::u16string_view list) {
  std::vector<std::size_t> numbers;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(u'\\'), list.size());
    const long long number = LeadingWholeNumber(list.substr(0, end));
    numbers.push_back(number > 0 ? static_cast<std::size_t>(number) : 0);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return numbers;
}

}  // namespace

RegExpExtractor::RegExpExtractor(const RegExpEngine& engine, std::u16string_view pattern,
                                 const RegExpExtractOptions& options, Progress& progress)
    : keepsCarriageReturn_(EndsWithLineBreakEscape(pattern)),
      repeat_(options.repeat),
      groups_(ReadGroupList(options.groupList)),
      separator_(options.groupSeparator),
      progress_(progress) {
  std::u16string whole(pattern);
  if (!groups_.empty() && pattern.find(u'(') == std::u16string_view::npos) {
    whole = u"(" + whole + u")";
  }
  regExp_ = engine.Compile(whole, {.ignoreCase = options.ignoreCase, .multiLine = true});
}

std::vector<std::u16string> RegExpExtractor::Extract(std::u16string_view text) {
  std::vector<std::u16string> results;
  VisitResults(text, [&results](std::u16string_view result) { results.emplace_back(result); });
  return results;
}

void RegExpExtractor::VisitResults(std::u16string_view text, const ExtractVisitor& visit) {
  if (!repeat_) {
    VisitOnce(text, visit);
    return;
  }
  // The pattern serves one search at a time, so the results are listed before they are searched.
  std::vector<std::u16string> results;
  VisitOnce(text, [&results](std::u16string_view result) { results.emplace_back(result); });
  for (const std::u16string& result : results) {
    visit(ExtractUntilNothingChanges(result));
  }
}

void RegExpExtractor::VisitOnce(std::u16string_view text, const ExtractVisitor& visit) {
  regExp_->Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        const std::u16string_view result = ResultOf(match);
        if (!result.empty()) {
          visit(result);
        }
        return true;
      },
      progress_);
}

std::u16string RegExpExtractor::ExtractUntilNothingChanges(std::u16string_view result) {
  // Every round that changes the text takes something away from it or breaks it up, so there are not more rounds than
  // characters.
  std::u16string text(result);
  for (std::size_t rounds = text.size(); rounds > 0 && text.size() > 1; --rounds) {
    std::u16string next;
    VisitOnce(text, [&next](std::u16string_view part) { AppendResult(next, part); });
    if (next.empty() || next == text) {
      break;
    }
    text = std::move(next);
  }
  return text;
}

std::u16string_view RegExpExtractor::ResultOf(const RegExpMatch& match) {
  std::u16string_view value = match.value;
  if (!keepsCarriageReturn_ && value.ends_with(u'\r')) {
    value.remove_suffix(1);
  }
  if (groups_.empty() || value.empty()) {
    return value;
  }
  joinedGroups_.clear();
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (i > 0) {
      joinedGroups_ += separator_;
    }
    if (groups_[i] > 0 && groups_[i] <= match.groups.size()) {
      joinedGroups_ += match.groups[groups_[i] - 1].value_or(u"");
    }
  }
  return joinedGroups_;
}

void AppendResult(std::u16string& joined, std::u16string_view result) {
  if (!joined.empty()) {
    joined += u"\r\n";
  }
  joined += result;
}

std::vector<std::u16string> ExtractFromText(const RegExpEngine& engine, std::u16string_view text,
                                            std::u16string_view pattern, const RegExpExtractOptions& options,
                                            Progress& progress) {
  return RegExpExtractor(engine, pattern, options, progress).Extract(text);
}

std::u16string RegExpExtract(const RegExpEngine& engine, std::u16string_view source, std::u16string_view pattern,
                             const RegExpExtractOptions& options, WriteBack writeBack, Progress& progress,
                             std::vector<std::u16string>* matches) {
  const SourceText input(source);
  std::vector<std::u16string> results = ExtractFromText(engine, input.text(), pattern, options, progress);
  std::u16string joined = JoinResults(results);
  if (writeBack == WriteBack::kYes && !joined.empty()) {
    input.Write(joined);
  }
  if (matches != nullptr) {
    *matches = std::move(results);
  }
  return joined;
}

std::u16string JoinResults(const std::vector<std::u16string>& results) {
  std::size_t size = 0;
  for (const std::u16string& result : results) {
    size += result.size() + 2;
  }
  std::u16string joined;
  joined.reserve(size);
  for (const std::u16string& result : results) {
    AppendResult(joined, result);
  }
  return joined;
}

}  // namespace scrivanta
