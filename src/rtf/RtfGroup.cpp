#include "rtf/RtfGroup.h"

#include <algorithm>

#include "rtf/RtfTokens.h"

namespace scrivanta {

namespace {

constexpr std::string_view kRtfBegin = "{\\rtf";

}  // namespace

std::optional<std::size_t> EndOfGroup(std::string_view rtf) {
  std::size_t depth = 0;
  RtfTokens tokens(rtf);
  while (const auto token = tokens.Next()) {
    if (token->kind == RtfToken::Kind::kOpen) {
      ++depth;
    } else if (token->kind == RtfToken::Kind::kClose) {
      if (depth <= 1) {
        return depth == 1 ? std::optional(token->end()) : std::nullopt;
      }
      --depth;
    }
  }
  return std::nullopt;
}

RtfDestination DestinationOf(std::string_view rtf, std::size_t brace) {
  RtfDestination destination;
  RtfTokens tokens(rtf, brace + 1);
  while (const auto token = tokens.Next()) {
    if (token->kind == RtfToken::Kind::kWord) {
      destination.name = token->name;
      destination.behind = token->end();
      break;
    }
    const bool isMark = token->kind == RtfToken::Kind::kSymbol && token->name == "*";
    if (!isMark && token->bytes.find_first_not_of("\r\n") != std::string_view::npos) {
      break;
    }
    destination.isMarked |= isMark;
  }
  return destination;
}

bool IsWholeRtf(std::string_view rtf) {
  const std::optional<std::size_t> end = rtf.starts_with(kRtfBegin) ? EndOfGroup(rtf) : std::nullopt;
  return end &&
         std::ranges::all_of(rtf.substr(*end), [](char byte) { return byte == '\0' || byte == '\r' || byte == '\n'; });
}

std::string WithParagraphEnds(std::string_view rtf) {
  constexpr std::string_view kLineBreak = "\\line";
  std::string whole;
  whole.reserve(rtf.size());
  RtfTokens tokens(rtf);
  while (const auto token = tokens.Next()) {
    if (token->Is("line")) {
      whole.append("\\par").append(token->bytes.substr(kLineBreak.size()));
    } else {
      whole.append(token->bytes);
    }
  }
  return whole;
}

}  // namespace scrivanta
