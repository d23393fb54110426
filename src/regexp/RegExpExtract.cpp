#include "regexp/RegExpExtract.h"

#include <algorithm>
#include <utility>

#include "regexp/LineBreakEscape.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"
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
  // A round takes something away, as a rule, so there are not more rounds than characters. What a round adds, the next
  // one would add again.
  std::u16string text(result);
  for (std::size_t rounds = text.size(); rounds > 0 && text.size() > 1; --rounds) {
    std::u16string next;
    VisitOnce(text, [&next](std::u16string_view part) { AppendLine(next, part); });
    if (next.empty() || next == text) {
      break;
    }
    if (next.size() > text.size()) {
      throw ExplainedError("extracting again makes the text longer and would not come to an end",
                           u"重复提取使文本越来越长，不会结束，放弃提取。");
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

std::vector<std::u16string> ExtractFromText(const RegExpEngine& engine, std::u16string_view text,
                                            std::u16string_view pattern, const RegExpExtractOptions& options,
                                            Progress& progress) {
  return RegExpExtractor(engine, pattern, options, progress).Extract(text);
}

}  // namespace scrivanta
