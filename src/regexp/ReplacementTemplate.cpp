#include "regexp/ReplacementTemplate.h"

#include <algorithm>

namespace scrivanta {

ReplacementTemplate::ReplacementTemplate(std::u16string_view replacement, std::size_t groupCount) {
  while (!replacement.empty()) {
    std::size_t taken = 0;
    if (replacement.front() == u'$') {
      taken = TakeReference(replacement, groupCount);
      if (taken == 0) {
        AddText(u"$");
        taken = 1;
      }
    } else {
      taken = std::min(replacement.find(u'$'), replacement.size());
      AddText(replacement.substr(0, taken));
    }
    replacement.remove_prefix(taken);
  }
}

std::size_t ReplacementTemplate::TakeReference(std::u16string_view rest, std::size_t groupCount) {
  if (rest.size() < 2) {
    return 0;
  }
  switch (rest[1]) {
    case u'$':
      AddText(u"$");
      return 2;
    case u'&':
      parts_.push_back({Kind::kMatch, 0, {}});
      return 2;
    case u'`':
      parts_.push_back({Kind::kBefore, 0, {}});
      return 2;
    case u'\'':
      parts_.push_back({Kind::kBehind, 0, {}});
      return 2;
    default:
      break;
  }
  // Two digits when they name a group, else one.
  std::size_t number = 0;
  std::size_t taken = 0;
  for (std::size_t length = 1; length <= 2 && length < rest.size(); ++length) {
    const char16_t digit = rest[length];
    if (digit < u'0' || digit > u'9') {
      break;
    }
    number = number * 10 + (digit - u'0');
    if (number > 0 && number <= groupCount) {
      taken = length + 1;
    } else if (taken > 0) {
      number /= 10;
    }
  }
  if (taken > 0) {
    parts_.push_back({Kind::kGroup, number, {}});
  }
  return taken;
}

void ReplacementTemplate::AddText(std::u16string_view text) {
  if (parts_.empty() || parts_.back().kind != Kind::kText) {
    parts_.emplace_back();
  }
  parts_.back().text += text;
}

bool ReplacementTemplate::NeedsWholeText() const {
  return std::any_of(parts_.begin(), parts_.end(),
                     [](const Part& part) { return part.kind == Kind::kBefore || part.kind == Kind::kBehind; });
}

void ReplacementTemplate::AppendTo(std::u16string& out, std::u16string_view text, const RegExpMatch& match) const {
  for (const Part& part : parts_) {
    switch (part.kind) {
      case Kind::kText:
        out += part.text;
        break;
      case Kind::kGroup:
        out += match.groups[part.group - 1].value_or(u"");
        break;
      case Kind::kMatch:
        out += match.value;
        break;
      case Kind::kBefore:
        out += text.substr(0, match.start);
        break;
      case Kind::kBehind:
        out += text.substr(match.end());
        break;
    }
  }
}

}  // namespace scrivanta
