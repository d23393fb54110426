#include "rtf/RtfTokens.h"

#include <algorithm>
#include <charconv>

namespace scrivanta {

namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::size_t kHexByte = 4;  // of \'hh

}  // namespace

std::optional<RtfToken> RtfTokens::Next() {
  if (at_ >= rtf_.size()) {
    return std::nullopt;
  }
  RtfToken token;
  switch (rtf_[at_]) {
    case '{':
      token = {.kind = RtfToken::Kind::kOpen, .bytes = rtf_.substr(at_, 1), .begin = at_, .name = {}, .number = {}};
      break;
    case '}':
      token = {.kind = RtfToken::Kind::kClose, .bytes = rtf_.substr(at_, 1), .begin = at_, .name = {}, .number = {}};
      break;
    case '\\':
      token = Control();
      break;
    default: {
      const std::size_t end = std::min(rtf_.find_first_of("\\{}", at_), rtf_.size());
      token.begin = at_;
      token.bytes = rtf_.substr(at_, end - at_);
    }
  }
  at_ = token.end();
  return token;
}

RtfToken RtfTokens::Control() {
  RtfToken token;
  token.begin = at_;
  const std::size_t name = at_ + 1;
  const std::size_t letters =
      std::min(rtf_.find_first_not_of(kLetters, name), rtf_.size()) - std::min(name, rtf_.size());
  if (letters > 0) {
    token.kind = RtfToken::Kind::kWord;
    token.name = rtf_.substr(name, letters);
    ReadWord(token);
    return token;
  }
  token.kind = RtfToken::Kind::kSymbol;
  token.name = rtf_.substr(std::min(name, rtf_.size()), 1);
  token.bytes = rtf_.substr(at_, token.name == "'" ? kHexByte : 2);
  return token;
}

void RtfTokens::ReadWord(RtfToken& token) {
  std::size_t end = token.begin + 1 + token.name.size();
  int number = 0;
  const char* const digits = rtf_.data() + end;
  const auto [behind, error] = std::from_chars(digits, rtf_.data() + rtf_.size(), number);
  if (behind != digits) {
    token.number = error == std::errc() ? number : 0;
    end += static_cast<std::size_t>(behind - digits);
  }
  if (end < rtf_.size() && rtf_[end] == ' ') {
    ++end;
  }
  if (token.name == "bin" && number > 0) {
    end += std::min(static_cast<std::size_t>(number), rtf_.size() - end);
  }
  token.bytes = rtf_.substr(token.begin, end - token.begin);
}

}  // namespace scrivanta
