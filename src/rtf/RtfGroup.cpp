#include "rtf/RtfGroup.h"

#include <algorithm>
#include <charconv>

namespace scrivanta {

namespace {

constexpr std::string_view kRtfBegin = "{\\rtf";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

constexpr std::string_view kLineBreak = "\\line";
constexpr std::string_view kParagraphEnd = "\\par";

// Behind the control word or symbol at the backslash, and behind the bytes that follow \bin.
std::size_t BehindControl(std::string_view rtf, std::size_t backslash) {
  const std::size_t begin = backslash + 1;
  const std::size_t end = std::min(rtf.find_first_not_of(kLetters, begin), rtf.size());
  if (end <= begin) {
    return begin + 1;  // a symbol; a brace may be one
  }
  if (rtf.substr(begin, end - begin) != "bin") {
    return end;
  }
  std::size_t count = 0;
  const char* const digits = rtf.data() + end;
  const char* const behind = std::from_chars(digits, rtf.data() + rtf.size(), count).ptr;
  const std::size_t blank = end + static_cast<std::size_t>(behind - digits);
  const std::size_t data = blank < rtf.size() && rtf[blank] == ' ' ? blank + 1 : blank;
  return data + std::min(count, rtf.size() - data);
}

}  // namespace

std::optional<std::size_t> EndOfGroup(std::string_view rtf) {
  std::size_t depth = 0;
  for (std::size_t at = rtf.find_first_of("\\{}"); at < rtf.size(); at = rtf.find_first_of("\\{}", at)) {
    if (rtf[at] == '\\') {
      at = BehindControl(rtf, at);
      continue;
    }
    if (rtf[at] == '{') {
      ++depth;
    } else if (depth <= 1) {
      return depth == 1 ? std::optional(at + 1) : std::nullopt;
    } else {
      --depth;
    }
    ++at;
  }
  return std::nullopt;
}

bool IsWholeRtf(std::string_view rtf) {
  const std::optional<std::size_t> end = rtf.starts_with(kRtfBegin) ? EndOfGroup(rtf) : std::nullopt;
  return end &&
         std::ranges::all_of(rtf.substr(*end), [](char byte) { return byte == '\0' || byte == '\r' || byte == '\n'; });
}

std::string WithParagraphEnds(std::string_view rtf) {
  std::string whole;
  whole.reserve(rtf.size());
  std::size_t copied = 0;
  for (std::size_t at = rtf.find('\\'); at < rtf.size(); at = rtf.find('\\', at)) {
    const std::size_t behind = std::min(BehindControl(rtf, at), rtf.size());
    if (rtf.substr(at, behind - at) == kLineBreak) {
      whole.append(rtf.substr(copied, at - copied)).append(kParagraphEnd);
      copied = behind;
    }
    at = behind;
  }
  return whole.append(rtf.substr(copied));
}

}  // namespace scrivanta
