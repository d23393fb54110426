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
  std::vector<std::u16string> results = ExtractOnce(text);
  if (repeat_) {
    for (std::u16string& result : results) {
      result = ExtractUntilNothingChanges(std::move(result));
    }
  }
  return results;
}

std::vector<std::u16string> RegExpExtractor::ExtractOnce(std::u16string_view text) {
  std::vector<std::u16string> results;
  regExp_->Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        std::u16string result = ResultOf(match);
        if (!result.empty()) {
          results.push_back(std::move(result));
        }
        return true;
      },
      progress_);
  return results;
}

std::u16string RegExpExtractor::ExtractUntilNothingChanges(std::u16string text) {
  // Every round that changes the text takes something away from it or breaks it up, so there are not more rounds than
  // characters.
  for (std::size_t rounds = text.size(); rounds > 0 && text.size() > 1; --rounds) {
    std::u16string next = JoinResults(ExtractOnce(text));
    if (next.empty() || next == text) {
      break;
    }
    text = std::move(next);
  }
  return text;
}

std::u16string RegExpExtractor::ResultOf(const RegExpMatch& match) const {
  std::u16string_view value = match.value;
  if (!keepsCarriageReturn_ && value.ends_with(u'\r')) {
    value.remove_suffix(1);
  }
  if (groups_.empty() || value.empty()) {
    return std::u16string(value);
  }
  std::u16string result;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (i > 0) {
      result += separator_;
    }
    if (groups_[i] > 0 && groups_[i] <= match.groups.size()) {
      result += match.groups[groups_[i] - 1].value_or(u"");
    }
  }
  return result;
}

std::vector<std::u16string> ExtractFromText(const RegExpEngine& engine, std::u16string_view text,
                                            std::u16string_view pattern, const RegExpExtractOptions& options,
                                            Progress& progress) {
  return RegExpExtractor(engine, pattern, options, progress).Extract(text);
}

std::u16string JoinResults(const std::vector<std::u16string>& results) {
  std::size_t size = 0;
  for (const std::u16string& result : results) {
    size += result.size() + 2;
  }
  std::u16string joined;
  joined.reserve(size);
  for (const std::u16string& result : results) {
    if (&result != &results.front()) {
      joined += u"\r\n";
    }
    joined += result;
  }
  return joined;
}

}  // namespace scrivanta
