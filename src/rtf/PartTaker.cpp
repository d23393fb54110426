#include "rtf/PartTaker.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "rtf/RtfGroup.h"
#include "rtf/RtfText.h"

namespace scrivanta {

namespace {

using Words = std::span<const std::string_view>;

constexpr std::array<std::string_view, 15> kParts = {"annotation", "do",      "footnote", "mmath", "moMath",
                                                     "nonshppict", "object",  "pict",     "rxe",   "shp",
                                                     "shpgrp",     "shppict", "tc",       "tcn",   "xe"};
constexpr std::array<std::string_view, 6> kCompanions = {"atnauthor", "atnid",   "atnref",
                                                         "atntime",   "atrfend", "atrfstart"};
// Parts that are but a word.
constexpr std::array<std::string_view, 7> kWordParts = {"chdate", "chdpa",  "chdpl", "chpgn",
                                                        "chtime", "column", "page"};
constexpr std::array<std::string_view, 18> kHeads = {"background", "colorschememapping",
                                                     "datastore",  "docvar",
                                                     "filetbl",    "footer",
                                                     "footerf",    "footerl",
                                                     "footerr",    "header",
                                                     "headerf",    "headerl",
                                                     "headerr",    "info",
                                                     "listtable",  "listoverridetable",
                                                     "revtbl",     "stylesheet"};
// Of a page, its section and its notes.
constexpr std::array<std::string_view, 44> kPageWords = {
    "aenddoc",    "aendnotes", "aftnbj", "aftnnar",   "aftnnrlc",   "aftnrstcont", "aftnstart",  "cols",
    "colsx",      "deftab",    "enddoc", "endnotes",  "facingp",    "footery",     "ftnbj",      "ftnnar",
    "ftnrstcont", "ftnstart",  "gutter", "guttersxn", "headery",    "landscape",   "linebetcol", "lndscpsxn",
    "margb",      "margbsxn",  "margl",  "marglsxn",  "margmirror", "margr",       "margrsxn",   "margt",
    "margtsxn",   "paperh",    "paperw", "pghsxn",    "pgncont",    "pgndec",      "pgnrestart", "pgnstart",
    "pgnstarts",  "pgwsxn",    "sectd",  "titlepg"};
constexpr std::array<std::string_view, 9> kTextWords = {"cell", "line", "par",   "pard", "row",
                                                        "sect", "tab",  "trowd", "u"};

// Where text is, though it may stand before any.
constexpr std::string_view kBookmark = "bkmk";

bool IsAmong(Words words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

}  // namespace

std::string PartTaker::Take() {
  LeaveForeignCharactersAlone();
  tables_ = parts_.AddTables(ReadRtfTables(rtf_));
  if (head_ != nullptr) {
    head_->tables = tables_;
  }
  out_.reserve(rtf_.size());
  while (const auto token = tokens_.Next()) {
    TakeToken(*token);
  }
  AddCompanions();
  return std::move(out_);
}

void PartTaker::LeaveForeignCharactersAlone() {
  std::u16string characters;
  RtfTokens tokens(rtf_);
  while (const auto token = tokens.Next()) {
    if (token->Is("u")) {
      characters += static_cast<char16_t>(token->number.value_or(0));
    }
  }
  parts_.LeaveAlone(characters);
}

void PartTaker::TakeToken(const RtfToken& token) {
  switch (token.kind) {
    case RtfToken::Kind::kOpen:
      TakeGroup(token.begin);
      return;
    case RtfToken::Kind::kClose:
      CloseGroup();
      return;
    case RtfToken::Kind::kWord:
      TakeWord(token);
      return;
    case RtfToken::Kind::kSymbol:
    case RtfToken::Kind::kText:
      if (token.bytes.find_first_not_of("\r\n") != std::string_view::npos) {
        AddCompanions();
        isInText_ = true;
      }
      out_ += token.bytes;
  }
}

void PartTaker::TakeGroup(std::size_t begin) {
  const RtfDestination destination = DestinationOf(rtf_, begin);
  const bool isPart = IsAmong(kParts, destination.name);
  const bool isCompanion = IsAmong(kCompanions, destination.name);
  const bool isTable =
      destination.name == "fonttbl" || destination.name == "colortbl" || destination.name == "generator";
  const bool isInHead =
      IsAmong(kHeads, destination.name) || (destination.isMarked && !destination.name.starts_with(kBookmark) &&
                                            !isInText_ && skippedAfterUnicode_.size() == 2);
  if (destination.name == "field") {
    TakeField(begin);
  } else if (isPart || isCompanion) {
    const std::string_view group = GroupAt(begin);
    companions_ += group;
    tokens_.GoTo(begin + group.size());
    if (isPart) {
      if (destination.name == "shppict") {
        TakeAlternative();
      }
      AddCompanions();
    }
  } else if (isTable) {
    CopyGroup(begin);
  } else if (isInHead) {
    const std::string_view group = GroupAt(begin);
    tokens_.GoTo(begin + group.size());
    if (head_ != nullptr) {
      head_->rtf += group;
    }
  } else if (destination.isMarked || destination.name == "pntext" || destination.name == "listtext") {
    CopyGroup(begin);
  } else {
    AddCompanions();
    out_ += '{';
    skippedAfterUnicode_.push_back(skippedAfterUnicode_.back());
  }
}

std::string_view PartTaker::GroupAt(std::size_t begin) const {
  const std::string_view rest = rtf_.substr(begin);
  return rest.substr(0, EndOfGroup(rest).value_or(rest.size()));
}

void PartTaker::CopyGroup(std::size_t begin) {
  const std::string_view group = GroupAt(begin);
  out_ += group;
  tokens_.GoTo(begin + group.size());
}

// The picture once more, for those who do not know the form that stands before.
void PartTaker::TakeAlternative() {
  RtfTokens ahead = tokens_;
  auto token = ahead.Next();
  if (token && token->kind == RtfToken::Kind::kText &&
      token->bytes.find_first_not_of("\r\n ") == std::string_view::npos) {
    token = ahead.Next();
  }
  if (token && token->kind == RtfToken::Kind::kOpen && DestinationOf(rtf_, token->begin).name == "nonshppict") {
    const std::string_view group = GroupAt(token->begin);
    companions_ += group;
    tokens_.GoTo(token->begin + group.size());
  }
}

// The text of a field is one of the document, between two signs; one without text is a part like others.
void PartTaker::TakeField(std::size_t begin) {
  const std::string_view field = GroupAt(begin);
  const std::size_t end = begin + field.size();
  const std::string_view text = TextOfField(field);
  if (text.empty() || RtfText(std::string("{\\rtf1\\uc1 ").append(text).append("}")).text().empty()) {
    companions_ += field;
    AddCompanions();
    tokens_.GoTo(end);
    return;
  }
  AddCompanions();
  isInText_ = true;
  const auto textBegin = static_cast<std::size_t>(text.data() - rtf_.data());
  const std::size_t textEnd = textBegin + text.size();
  const std::string unicode = UnicodeRule(skippedAfterUnicode_.back());
  const std::string inner = unicode.empty() ? unicode : UnicodeRule(1);
  KeptParts::Part closing{
      .rtf = std::string(rtf_.substr(textEnd, end - textEnd)) + inner, .tables = tables_, .isEnd = true};
  const char16_t closingSign = parts_.SignFor(std::move(closing));
  KeptParts::Part opening{.rtf = unicode + std::string(rtf_.substr(begin, textBegin - begin)) +
                                 (rtf_[textBegin - 1] == ' ' ? "" : " ") + inner,
                          .tables = tables_,
                          .end = closingSign};
  const char16_t openingSign = closingSign == 0 ? char16_t{0} : parts_.SignFor(std::move(opening));
  out_ += '{';
  AddSign(openingSign);
  skippedAfterUnicode_.push_back(skippedAfterUnicode_.back());
  fields_.push_back({skippedAfterUnicode_.size(), end, openingSign == 0 ? char16_t{0} : closingSign});
  tokens_.GoTo(textBegin);
}

std::string_view PartTaker::TextOfField(std::string_view field) {
  RtfTokens tokens(field, 1);
  while (const auto token = tokens.Next()) {
    if (token->kind != RtfToken::Kind::kOpen) {
      continue;
    }
    const std::size_t end = token->begin + EndOfGroup(field.substr(token->begin)).value_or(field.size() - token->begin);
    const RtfDestination destination = DestinationOf(field, token->begin);
    if (destination.name == "fldrslt") {
      return field.substr(destination.behind, end - 1 - destination.behind);
    }
    tokens.GoTo(end);
  }
  return {};
}

void PartTaker::TakeWord(const RtfToken& word) {
  if (word.name == "chftn" || word.name == "chatn") {
    companions_.append("\\").append(word.name).append(" ");
    return;
  }
  if (IsAmong(kWordParts, word.name)) {
    AddCompanions();
    companions_.append("\\").append(word.name).append(" ");
    AddCompanions();
    return;
  }
  if (IsAmong(kTextWords, word.name)) {
    AddCompanions();
    isInText_ = true;
  } else if (word.name == "uc") {
    skippedAfterUnicode_.back() = word.number.value_or(1);
  } else if (head_ != nullptr && !isInText_ && IsAmong(kPageWords, word.name)) {
    head_->rtf += word.bytes;
    if (!word.bytes.ends_with(' ')) {
      head_->rtf += ' ';
    }
  }
  out_ += word.bytes;
}

void PartTaker::CloseGroup() {
  AddCompanions();
  if (!fields_.empty() && fields_.back().depth == skippedAfterUnicode_.size()) {
    AddSign(fields_.back().sign);
    tokens_.GoTo(fields_.back().end);
    fields_.pop_back();
  }
  out_ += '}';
  if (skippedAfterUnicode_.size() > 1) {
    skippedAfterUnicode_.pop_back();
  }
}

// What has come together makes a part.
void PartTaker::AddCompanions() {
  if (companions_.empty()) {
    return;
  }
  const std::string unicode = UnicodeRule(skippedAfterUnicode_.back());
  std::string rtf = unicode + std::exchange(companions_, {}) + (unicode.empty() ? unicode : UnicodeRule(1));
  AddSign(parts_.SignFor({.rtf = std::move(rtf), .tables = tables_}));
  isInText_ = true;
}

void PartTaker::AddSign(char16_t sign) {
  if (sign != 0) {
    out_ += "{\\uc1\\u" + std::to_string(static_cast<std::int16_t>(sign)) + "?}";
  }
}

// How many characters stand behind \uN for readers who do not know it: one, unless it is said.
std::string PartTaker::UnicodeRule(int skipped) const {
  return skipped == 1 && skippedAfterUnicode_.back() == 1 ? std::string() : "\\uc" + std::to_string(skipped) + " ";
}

}  // namespace scrivanta
