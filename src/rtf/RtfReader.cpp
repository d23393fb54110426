#include "rtf/RtfReader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "text/Encoding.h"
#include "text/Hexadecimal.h"

namespace scrivanta {

namespace {

constexpr char16_t kUnknownCharacter = 0xFFFF;
constexpr std::uint32_t kMostSkipped = 16;

struct NamedCharacter {
  std::string_view word;
  char16_t character;
};
constexpr std::array kNamedCharacters = {
    NamedCharacter{"tab", u'\t'},      NamedCharacter{"line", u'\v'},       NamedCharacter{"page", u'\f'},
    NamedCharacter{"emdash", 0x2014},  NamedCharacter{"endash", 0x2013},    NamedCharacter{"emspace", 0x2003},
    NamedCharacter{"enspace", 0x2002}, NamedCharacter{"bullet", 0x2022},    NamedCharacter{"lquote", 0x2018},
    NamedCharacter{"rquote", 0x2019},  NamedCharacter{"ldblquote", 0x201C}, NamedCharacter{"rdblquote", 0x201D},
    NamedCharacter{"cell", 0x0007},
};

// Destinations that hold no text of the document. Those marked by \* are passed over anyway.
constexpr std::array<std::string_view, 31> kOtherDestinations = {
    "annotation", "atnauthor", "atnid",   "author",  "colortbl",   "comment",  "company",    "creatim",
    "doccomm",    "filetbl",   "fldinst", "footer",  "footerf",    "footerl",  "footerr",    "footnote",
    "header",     "headerf",   "headerl", "headerr", "info",       "keywords", "nonshppict", "object",
    "pict",       "pntext",    "revtbl",  "rxe",     "stylesheet", "tc",       "xe",
};

// The characters of code page 1252 from 0x80 to 0x9F; the others are their own numbers.
constexpr std::u16string_view kWesternSigns =
    u"\x20AC\xFFFF\x201A\x0192\x201E\x2026\x2020\x2021\x02C6\x2030\x0160\x2039\x0152\xFFFF\x017D\xFFFF"
    u"\xFFFF\x2018\x2019\x201C\x201D\x2022\x2013\x2014\x02DC\x2122\x0161\x203A\x0153\xFFFF\x017E\x0178";

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLeadByte(unsigned char byte) {
  return byte >= 0x81 && byte <= 0xFE;
}

bool IsTrailByte(unsigned char byte) {
  return byte >= 0x40 && byte != 0x7F && byte != 0xFF;
}

}  // namespace

void RtfReader::Read() {
  if (!rtf_.starts_with("{\\rtf") || rtf_.size() > std::numeric_limits<std::uint32_t>::max()) {
    return;
  }
  // A control may add a NUL behind the last brace.
  while (at_ < rtf_.size() && (rtf_[at_] != '\0' || !outer_.empty())) {
    ReadItem();
  }
  DropLastParagraphEnd();
}

void RtfReader::ReadItem() {
  const std::size_t begin = at_;
  const char c = rtf_[at_++];
  const bool afterBrace = std::exchange(isGroupStart_, false);
  if (lead_ != 0 && c != '\r' && c != '\n' && (c != '\\' || rtf_.substr(at_, 1) != "'")) {
    // The trail byte may stand as it is, when it means nothing else.
    if (c != '\\' && c != '{' && c != '}') {
      AddTrailByte(static_cast<unsigned char>(c));
      return;
    }
    lead_ = 0;
    Add(kUnknownCharacter, {leadBegin_, leadEnd_});
  }
  switch (c) {
    case '{':
      out_.OpenGroup();
      outer_.push_back(group_);
      isGroupStart_ = true;
      break;
    case '}':
      out_.CloseGroup();
      if (!outer_.empty()) {
        group_ = outer_.back();
        outer_.pop_back();
      }
      break;
    case '\\':
      isGroupStart_ = afterBrace;
      ReadControl();
      break;
    case '\r':
    case '\n':
      isGroupStart_ = afterBrace;
      break;
    default:
      AddByte(static_cast<unsigned char>(c), begin);
  }
}

void RtfReader::ReadControl() {
  const std::size_t begin = at_ - 1;
  if (at_ == rtf_.size()) {
    return;
  }
  const char c = rtf_[at_];
  if (IsLetter(c)) {
    Handle(TakeControlWord(begin));
    isGroupStart_ = false;
    return;
  }
  ++at_;
  switch (c) {
    case '\'':
      if (const auto byte = TakeHexByte()) {
        if (lead_ != 0) {
          AddTrailByte(*byte);
        } else {
          AddByte(*byte, begin);
        }
      }
      break;
    case '*':
      if (isGroupStart_) {
        TakeMarkedDestination();
      }
      break;
    case '\\':
    case '{':
    case '}':
      Add(static_cast<char16_t>(c), begin);
      break;
    case '~':
      Add(u'\xA0', begin);
      break;
    case '_':
      Add(u'\x2011', begin);
      break;
    case '\r':
    case '\n':
      AddLineBreak(begin);
      break;
    default:
      break;
  }
  isGroupStart_ = false;
}

// Readers that do not know the word behind the mark pass over the group; here all such groups hold no text.
void RtfReader::TakeMarkedDestination() {
  if (group_.destination == Destination::kText && rtf_.substr(at_, 1) == "\\") {
    const auto isLetter = [](char c) { return IsLetter(c); };
    const std::string_view rest = rtf_.substr(at_ + 1);
    const auto length = std::ranges::find_if_not(rest, isLetter) - rest.begin();
    out_.TakeDestination(rest.substr(0, static_cast<std::size_t>(length)));
  }
  group_.destination = Destination::kNoText;
}

RtfReader::ControlWord RtfReader::TakeControlWord(std::size_t begin) {
  const std::size_t nameBegin = at_;
  while (at_ < rtf_.size() && IsLetter(rtf_[at_])) {
    ++at_;
  }
  ControlWord word{rtf_.substr(nameBegin, at_ - nameBegin), std::nullopt, begin};
  std::size_t digit = at_;
  const bool isNegative = digit < rtf_.size() && rtf_[digit] == '-';
  if (isNegative) {
    ++digit;
  }
  if (digit < rtf_.size() && IsDigit(rtf_[digit])) {
    long long number = 0;
    for (; digit < rtf_.size() && IsDigit(rtf_[digit]); ++digit) {
      number = std::min<long long>(number * 10 + (rtf_[digit] - '0'), std::numeric_limits<int>::max());
    }
    word.number = static_cast<int>(isNegative ? -number : number);
    at_ = digit;
  }
  if (at_ < rtf_.size() && rtf_[at_] == ' ') {
    ++at_;
  }
  return word;
}

void RtfReader::Handle(const ControlWord& word) {
  if (word.name == "bin") {
    at_ += std::min(static_cast<std::size_t>(std::max(word.number.value_or(0), 0)), rtf_.size() - at_);
  } else if (word.name == "u") {
    HandleUnicode(word);
  } else if (word.name == "uc") {
    group_.skippedAfterUnicode =
        static_cast<std::uint32_t>(std::clamp<int>(word.number.value_or(1), 0, static_cast<int>(kMostSkipped)));
  } else if (word.name == "par" || word.name == "sect") {
    AddLineBreak(word.begin);
  } else if (!HandleFont(word) && !HandleDestination(word)) {
    if (word.name == "v") {
      group_.isHidden = word.number.value_or(1) != 0;
    }
    const auto* named = std::find_if(kNamedCharacters.begin(), kNamedCharacters.end(),
                                     [&](const NamedCharacter& candidate) { return candidate.word == word.name; });
    if (named != kNamedCharacters.end()) {
      Add(named->character, word.begin);
    }
  }
  if (group_.destination == Destination::kText) {
    out_.TakeWord(word.name, word.number);
  }
}

bool RtfReader::HandleFont(const ControlWord& word) {
  const int number = word.number.value_or(0);
  if (word.name == "ansicpg") {
    documentCharset_ = number == 936 ? Charset::kChinese : number == 1252 ? Charset::kWestern : Charset::kOther;
  } else if (word.name == "deff") {
    defaultFont_ = number;
    group_.font = number;
  } else if (word.name == "plain") {
    group_.font = defaultFont_;
    group_.isHidden = false;
  } else if (word.name == "f") {
    (group_.destination == Destination::kFontTable ? fontInTable_ : group_.font) = number;
  } else if (word.name == "fcharset" && group_.destination == Destination::kFontTable) {
    if (number != 1) {  // 1: the document's
      fonts_[fontInTable_] = number == 134 ? Charset::kChinese : number == 0 ? Charset::kWestern : Charset::kOther;
    }
  } else {
    return false;
  }
  return true;
}

bool RtfReader::HandleDestination(const ControlWord& word) {
  if (word.name == "fonttbl") {
    group_.destination = Destination::kFontTable;
    return true;
  }
  if (std::binary_search(kOtherDestinations.begin(), kOtherDestinations.end(), word.name)) {
    if (group_.destination == Destination::kText) {
      out_.TakeDestination(word.name);
    }
    group_.destination = Destination::kNoText;
    return true;
  }
  return false;
}

void RtfReader::HandleUnicode(const ControlWord& word) {
  if (!word.number) {
    return;
  }
  SkipFallback(group_.skippedAfterUnicode);
  Add(static_cast<char16_t>(*word.number & 0xFFFF), word.begin);
}

// What stands behind \uN for readers that do not know it: bytes, escaped bytes or other controls, one character each.
void RtfReader::SkipFallback(std::uint32_t count) {
  for (; count > 0 && at_ < rtf_.size(); --count) {
    while (at_ < rtf_.size() && (rtf_[at_] == '\r' || rtf_[at_] == '\n')) {
      ++at_;
    }
    if (at_ == rtf_.size() || rtf_[at_] == '{' || rtf_[at_] == '}') {
      return;
    }
    const std::size_t begin = at_++;
    if (rtf_[begin] != '\\' || at_ == rtf_.size()) {
      continue;
    }
    if (IsLetter(rtf_[at_])) {
      TakeControlWord(begin);
    } else if (rtf_[at_++] == '\'') {
      TakeHexByte();
    }
  }
}

std::optional<unsigned char> RtfReader::TakeHexByte() {
  if (rtf_.size() - at_ < 2) {
    return std::nullopt;
  }
  const int high = HexDigitValue(static_cast<unsigned char>(rtf_[at_]));
  const int low = HexDigitValue(static_cast<unsigned char>(rtf_[at_ + 1]));
  if (high < 0 || low < 0) {
    return std::nullopt;
  }
  at_ += 2;
  return static_cast<unsigned char>(high * 16 + low);
}

void RtfReader::AddByte(unsigned char byte, std::size_t begin) {
  if (byte < 0x80) {
    Add(byte, begin);
    return;
  }
  switch (CharsetNow()) {
    case Charset::kChinese:
      if (IsLeadByte(byte)) {
        lead_ = byte;
        leadBegin_ = begin;
        leadEnd_ = at_;
      } else {
        Add(byte == 0x80 ? u'\x20AC' : kUnknownCharacter, begin);
      }
      break;
    case Charset::kWestern:
      Add(byte < 0xA0 ? kWesternSigns[byte - 0x80U] : char16_t{byte}, begin);
      break;
    case Charset::kOther:
      Add(kUnknownCharacter, begin);
      break;
  }
}

void RtfReader::AddTrailByte(unsigned char byte) {
  const std::array bytes = {static_cast<char>(std::exchange(lead_, 0)), static_cast<char>(byte)};
  const std::u16string decoded =
      IsTrailByte(byte) ? Decode(Encoding::kGbk, {bytes.data(), bytes.size()}) : std::u16string();
  Add(decoded.size() == 1 ? decoded.front() : kUnknownCharacter, leadBegin_);
}

void RtfReader::Add(char16_t unit, std::size_t begin) {
  Add(unit, {begin, at_});
}

void RtfReader::Add(char16_t unit, Bytes bytes) {
  if (!ShowsText()) {
    return;
  }
  behindLineBreak_.reset();
  out_.TakeUnit({unit, bytes.begin, bytes.end, CharsetNow() == Charset::kChinese, group_.skippedAfterUnicode});
}

void RtfReader::AddLineBreak(std::size_t begin) {
  Add(u'\r', begin);
  Add(u'\n', at_);
  if (ShowsText()) {
    behindLineBreak_ = at_;
  }
}

RtfReader::Charset RtfReader::CharsetNow() const {
  const auto font = fonts_.find(group_.font);
  return font == fonts_.end() ? documentCharset_ : font->second;
}

void RtfReader::DropLastParagraphEnd() {
  constexpr std::string_view kNothing("\r\n}\0", 4);
  if (behindLineBreak_ && rtf_.find_first_not_of(kNothing, *behindLineBreak_) == std::string_view::npos) {
    out_.DropLastLineBreak();
  }
}

}  // namespace scrivanta
