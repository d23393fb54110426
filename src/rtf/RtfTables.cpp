#include "rtf/RtfTables.h"

#include <algorithm>
#include <array>

#include "rtf/RtfGroup.h"
#include "rtf/RtfTokens.h"

namespace scrivanta {

namespace {

constexpr std::array<std::string_view, 14> kColourWords = {"brdrcf",  "cb",      "cbpat",   "cf",      "cfpat",
                                                           "chcbpat", "chcfpat", "clcbpat", "clcfpat", "highlight",
                                                           "trcbpat", "trcfpat", "ulc",     "ulclr"};

// The bytes of the group that the destination names, without its outer braces.
std::string_view InsideOf(std::string_view rtf, std::string_view opening) {
  const std::size_t begin = rtf.find(opening);
  if (begin == std::string_view::npos) {
    return {};
  }
  const std::string_view group = rtf.substr(begin, EndOfGroup(rtf.substr(begin)).value_or(0));
  return group.empty() ? group : group.substr(opening.size(), group.size() - opening.size() - 1);
}

// With braces around each font or without.
std::map<int, std::string> ReadFonts(std::string_view table) {
  std::map<int, std::string> fonts;
  std::string* font = nullptr;  // the one whose entry is read
  std::size_t depth = 0;
  RtfTokens tokens(table);
  while (const auto token = tokens.Next()) {
    if (token->kind == RtfToken::Kind::kClose && --depth == 0) {
      font = nullptr;
    }
    if (token->Is("f") && token->number) {
      font = &fonts[*token->number];
    } else if (font != nullptr) {
      *font += token->bytes;
    }
    depth += token->kind == RtfToken::Kind::kOpen ? 1 : 0;
    if (depth == 0 && token->bytes.ends_with(';')) {
      font = nullptr;
    }
  }
  return fonts;
}

std::vector<std::string> ReadColours(std::string_view table) {
  std::vector<std::string> colours;
  while (!table.empty()) {
    const std::size_t end = table.find(';');
    if (end == std::string_view::npos) {
      break;
    }
    std::string colour(table.substr(0, end));
    std::erase_if(colour, [](char byte) { return byte == '\r' || byte == '\n' || byte == ' '; });
    colours.push_back(std::move(colour));
    table.remove_prefix(end + 1);
  }
  return colours;
}

}  // namespace

RtfTables ReadRtfTables(std::string_view rtf) {
  return {ReadFonts(InsideOf(rtf, "{\\fonttbl")), ReadColours(InsideOf(rtf, "{\\colortbl"))};
}

bool IsFontWord(std::string_view word) {
  return word == "f" || word == "af";
}

bool IsColourWord(std::string_view word) {
  return std::ranges::find(kColourWords, word) != kColourWords.end();
}

}  // namespace scrivanta
