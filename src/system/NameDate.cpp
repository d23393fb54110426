#include "system/NameDate.h"

#include <algorithm>
#include <utility>

#include "regexp/RegExpErrors.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

using Part = std::u16string MomentParts::*;

struct Token {
  std::u16string_view letters;
  Part part;
  std::u16string_view expression;
};

constexpr std::u16string_view kTwoDigits = u"(\\d{2})";
constexpr std::u16string_view kFourDigits = u"(\\d{4})";

// The longer of two that begin alike stands first.
constexpr Token kTokens[] = {
    {u"YYYY", &MomentParts::year, kFourDigits}, {u"yyyy", &MomentParts::year, kFourDigits},
    {u"%Y", &MomentParts::year, kFourDigits},   {u"YY", &MomentParts::year, kTwoDigits},
    {u"yy", &MomentParts::year, kTwoDigits},    {u"%y", &MomentParts::year, kTwoDigits},
    {u"MM", &MomentParts::month, kTwoDigits},   {u"%m", &MomentParts::month, kTwoDigits},
    {u"DD", &MomentParts::day, kTwoDigits},     {u"dd", &MomentParts::day, kTwoDigits},
    {u"%d", &MomentParts::day, kTwoDigits},     {u"HH", &MomentParts::hour, kTwoDigits},
    {u"hh", &MomentParts::hour, kTwoDigits},    {u"%H", &MomentParts::hour, kTwoDigits},
    {u"mm", &MomentParts::minute, kTwoDigits},  {u"%M", &MomentParts::minute, kTwoDigits},
    {u"SS", &MomentParts::second, kTwoDigits},  {u"ss", &MomentParts::second, kTwoDigits},
    {u"%S", &MomentParts::second, kTwoDigits},
};

const Token* TokenAt(std::u16string_view pattern, bool byPercent) {
  const auto* found = std::find_if(std::begin(kTokens), std::end(kTokens), [pattern, byPercent](const Token& token) {
    return token.letters.starts_with(u'%') == byPercent && pattern.starts_with(token.letters);
  });
  return found == std::end(kTokens) ? nullptr : found;
}

std::u16string ExpressionOf(char16_t character) {
  constexpr std::u16string_view kSpecial = u"^$.+()[]{}|/";
  if (character == u'*') {
    return u".*?";
  }
  if (character == u'?') {
    return u".";
  }
  const std::u16string text(1, character);
  return kSpecial.find(character) == std::u16string_view::npos ? text : u"\\" + text;
}

// The expression of a pattern of letters, and what its groups are.
std::pair<std::u16string, std::vector<Part>> Translated(std::u16string_view pattern) {
  std::pair<std::u16string, std::vector<Part>> result;
  auto& [expression, parts] = result;
  const bool byPercent = pattern.find(u'%') != pattern.npos;
  while (!pattern.empty()) {
    if (const Token* const token = TokenAt(pattern, byPercent)) {
      const bool isMinute =
          token->letters == u"MM" && std::find(parts.begin(), parts.end(), &MomentParts::hour) != parts.end();
      parts.push_back(isMinute ? &MomentParts::minute : token->part);
      expression += token->expression;
      pattern.remove_prefix(token->letters.size());
    } else {
      expression += ExpressionOf(pattern.front());
      pattern.remove_prefix(1);
    }
  }
  return result;
}

bool Has(const std::vector<Part>& parts, std::initializer_list<Part> wanted) {
  return std::all_of(wanted.begin(), wanted.end(),
                     [&parts](Part part) { return std::find(parts.begin(), parts.end(), part) != parts.end(); });
}

}  // namespace

NameDate::NameDate(std::u16string_view pattern) {
  const bool isExpression = pattern.find(u'\\') != pattern.npos || pattern.find(u"[0-9]") != pattern.npos;
  auto [expression, parts] =
      isExpression ? std::pair(std::u16string(pattern),
                               std::vector<Part>{&MomentParts::year, &MomentParts::month, &MomentParts::day,
                                                 &MomentParts::hour, &MomentParts::minute, &MomentParts::second})
                   : Translated(pattern);
  expression_ = BuiltInRegExpEngine().Compile(expression, {});
  parts.resize(std::min(parts.size(), expression_->groupCount()));
  parts_ = std::move(parts);
  const bool hasDate = Has(parts_, {&MomentParts::year, &MomentParts::month, &MomentParts::day});
  const bool hasTime = Has(parts_, {&MomentParts::hour, &MomentParts::minute});
  if (!hasDate && !hasTime) {
    throw ExplainedError("the pattern of names gives neither a date (YYYYMMDD) nor a time (HHmm)",
                         u"文件名的格式里既没有日期（如YYYYMMDD）也没有时间（如HHmmSS）。");
  }
}

std::optional<PartialMoment> NameDate::In(std::u16string_view name) const {
  std::optional<PartialMoment> found;
  NoProgress progress;
  expression_->Scan(
      name, 0,
      [&](const RegExpMatch& match) {
        MomentParts parts;
        for (std::size_t index = 0; index < parts_.size(); ++index) {
          parts.*parts_[index] = match.groups[index].value_or(u"");
        }
        const bool isDigits = std::all_of(parts_.begin(), parts_.end(), [&parts](Part part) {
          constexpr std::size_t kMostDigits = 4;
          return (parts.*part).size() <= kMostDigits &&
                 (parts.*part).find_first_not_of(u"0123456789") == std::u16string::npos;
        });
        found = isDigits ? MomentOfParts(parts) : std::nullopt;
        return !found;
      },
      progress);
  return found;
}

}  // namespace scrivanta
