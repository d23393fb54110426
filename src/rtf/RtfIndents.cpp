#include "rtf/RtfIndents.h"

#include <vector>

#include "rtf/RtfTokens.h"

namespace scrivanta {

namespace {

bool IsIndent(const RtfToken& token) {
  return token.Is("li") || token.Is("fi");
}

// The words of one paragraph, between \\pard and what is no word.
void AppendParagraph(const std::vector<RtfToken>& words, std::string& rtf) {
  int first = 0;
  int others = 0;
  for (const RtfToken& word : words) {
    if (IsIndent(word)) {
      (word.Is("fi") ? first : others) = word.number.value_or(0);
    }
  }
  bool isSaid = false;
  for (const RtfToken& word : words) {
    if (!IsIndent(word)) {
      rtf += word.bytes;
      continue;
    }
    if (!isSaid) {
      rtf += "\\li" + std::to_string(first + others) + "\\fi" + std::to_string(-others);
      isSaid = true;
    }
    if (word.bytes.ends_with(' ')) {
      rtf += ' ';
    }
  }
}

}  // namespace

std::string WithIndentsOfLines(std::string_view rtf) {
  std::string whole;
  whole.reserve(rtf.size());
  std::vector<RtfToken> words;
  RtfTokens tokens(rtf);
  while (const auto token = tokens.Next()) {
    if (token->Is("pard") || token->kind != RtfToken::Kind::kWord) {
      AppendParagraph(words, whole);
      words.clear();
    }
    if (token->kind == RtfToken::Kind::kWord) {
      words.push_back(*token);
    } else {
      whole += token->bytes;
    }
  }
  AppendParagraph(words, whole);
  return whole;
}

}  // namespace scrivanta
