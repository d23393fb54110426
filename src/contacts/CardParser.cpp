#include "contacts/CardParser.h"

#include <algorithm>
#include <utility>

#include "contacts/CardVersions.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr std::size_t kDeepestNesting = 8;
constexpr std::size_t kMostLinesOutside = 100;

bool IsMark(std::string_view line, std::string_view name) {
  const std::size_t colon = line.find(':');
  return colon != std::string_view::npos && EqualIgnoringCase(WithoutBlanksAround(line.substr(0, colon)), name) &&
         EqualIgnoringCase(WithoutBlanksAround(line.substr(colon + 1)), "VCARD");
}

bool IsBegin(std::string_view line) {
  return IsMark(line, "BEGIN");
}

bool IsEnd(std::string_view line) {
  return IsMark(line, "END");
}

bool BeginsWithBlank(std::string_view line) {
  return line.starts_with(' ') || line.starts_with('\t');
}

// A soft break takes the blanks behind it along.
bool EndsInSoftBreak(std::string_view& line) {
  const std::size_t last = line.find_last_not_of(" \t");
  if (last == std::string_view::npos || line[last] != '=') {
    return false;
  }
  line = line.substr(0, last);
  return true;
}

// Whether nothing stands in the value but encoded bytes and what separates its parts: as phones write it.
bool IsAllEncoded(std::string_view value) {
  for (std::size_t i = 0; i < value.size();) {
    if (value[i] != '=' && value[i] != ';') {
      return false;
    }
    i += value[i] == '=' ? 3 : 1;
  }
  return true;
}

}  // namespace

void CardParser::TakeLine(std::string_view line, std::uint64_t number) {
  if (number == 1 && line.starts_with("\xEF\xBB\xBF")) {
    line.remove_prefix(3);
  }
  if (nested_ > 0) {
    TakeNested(line);
    return;
  }
  if (property_ && Continues(line)) {
    Append(line);
    return;
  }
  FinishProperty();
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));  // it continues nothing
  if (!line.empty()) {
    Begin(line, number);
  }
}

bool CardParser::Continues(std::string_view line) const {
  if (IsBegin(line) || IsEnd(line)) {
    // A card as the value of a property.
    return property_->name == "AGENT" && WithoutBlanksAround(property_->value).empty() && IsBegin(line);
  }
  if (line.starts_with('#')) {
    return property_->encoding == CardEncoding::kQuotedPrintable && joins_ && !allEncoded_;
  }
  switch (property_->encoding) {
    case CardEncoding::kQuotedPrintable:
      return joins_ ? ContinuesEncoded(line) : BeginsWithBlank(line) && !WithoutBlanksAround(line).empty();
    case CardEncoding::kBase64:
      return !afterEmptyLine_ && (BeginsWithBlank(line) || line.find(':') == std::string_view::npos);
    case CardEncoding::kPlain:
      break;
  }
  return (BeginsWithBlank(line) && !WithoutBlanksAround(line).empty()) || (joins_ && !BeginsKnownProperty(line));
}

// Behind a soft break nearly everything goes on; a break that dangles is followed by the next property, which in a
// value that is encoded throughout can be told from it.
bool CardParser::ContinuesEncoded(std::string_view line) const {
  return !(allEncoded_ && BeginsKnownProperty(line));
}

void CardParser::Append(std::string_view line) {
  Count(line.size());
  property_->raw += '\n';
  property_->raw += line;
  if (IsBegin(line)) {
    property_->isNested = true;
    nested_ = 1;
    return;
  }
  if (property_->encoding == CardEncoding::kBase64) {
    // An empty line ends the photo; one before its first line does not.
    afterEmptyLine_ = line.empty() && !WithoutBlanksAround(property_->value).empty();
    if (property_->value.empty()) {
      property_->value = WithoutBlanksAround(line);
    }
    return;
  }
  if (property_->encoding == CardEncoding::kQuotedPrintable) {
    const std::string_view text = WithoutBlanksAround(line);
    const bool isFold = joins_ ? text.starts_with('=') && allEncoded_ : true;
    line = BeginsWithBlank(line) && isFold ? line.substr(line.find_first_not_of(" \t")) : line;
    joins_ = EndsInSoftBreak(line);
    allEncoded_ = allEncoded_ && IsAllEncoded(line);
    property_->value += line;
    return;
  }
  if (std::exchange(joins_, line.ends_with('\\'))) {
    property_->value.back() = '\n';  // the backslash that ended the line
    property_->value += line;
  } else {
    // In 2.1 the blank is the text's own, later it has been put in.
    property_->value += open_.back().version == 2 ? line : line.substr(1);
  }
}

void CardParser::Begin(std::string_view line, std::uint64_t number) {
  if (IsBegin(line)) {
    if (open_.size() == kDeepestNesting) {
      complete_.push_back(std::move(open_.front().card));
      open_.erase(open_.begin());
    }
    open_.emplace_back().card.line = number;
    return;
  }
  if (IsEnd(line) && !open_.empty()) {
    CloseCard();
    return;
  }
  if (open_.empty()) {
    if (!line.starts_with('#') && linesOutside_.size() < kMostLinesOutside) {
      linesOutside_.push_back(number);
    }
    return;
  }
  Count(line.size());
  property_ = line.starts_with('#') ? std::nullopt : ReadPropertyHead(line);
  if (!property_) {
    CardProperty& stray = open_.back().card.strayLines.emplace_back();
    stray.raw = line;
    stray.line = number;
    return;
  }
  property_->raw = line;
  property_->line = number;
  property_->escapes = open_.back().version > 2;
  afterEmptyLine_ = false;
  if (property_->encoding == CardEncoding::kQuotedPrintable) {
    std::string_view value = property_->value;
    joins_ = EndsInSoftBreak(value);
    property_->value.resize(value.size());
    allEncoded_ = IsAllEncoded(property_->value);
  } else {
    joins_ = property_->encoding == CardEncoding::kPlain && !property_->escapes && line.ends_with('\\');
  }
}

void CardParser::TakeNested(std::string_view line) {
  Count(line.size());
  property_->raw += '\n';
  property_->raw += line;
  nested_ += IsBegin(line) ? 1 : IsEnd(line) ? -1 : 0;
  if (nested_ == 0) {
    FinishProperty();
  }
}

void CardParser::FinishProperty() {
  if (!property_) {
    return;
  }
  OpenCard& open = open_.back();
  if (afterEmptyLine_ && property_->raw.ends_with('\n')) {
    property_->raw.pop_back();
  }
  if (property_->name == "VERSION") {
    const std::string_view version = WithoutBlanksAround(property_->value);
    open.version = version.starts_with('3') ? 3 : version.starts_with('4') ? 4 : 2;
  } else if (property_->name == "BEGIN" || property_->name == "END") {
    // No mark of a card as it stands, but perhaps one when its folded lines are joined.
    std::erase(property_->raw, '\n');
    open.card.strayLines.push_back(std::move(*property_));
  } else {
    if (open.version > 2) {
      MakeCard21(*property_);
    }
    open.card.properties.push_back(std::move(*property_));
  }
  property_.reset();
  joins_ = false;
  afterEmptyLine_ = false;
  nested_ = 0;
}

void CardParser::CloseCard() {
  complete_.push_back(std::move(open_.back().card));
  open_.pop_back();
}

void CardParser::End() {
  FinishProperty();
  while (!open_.empty()) {
    complete_.push_back(std::move(open_.front().card));
    open_.erase(open_.begin());
  }
}

std::optional<Card> CardParser::Next() {
  if (complete_.empty()) {
    return std::nullopt;
  }
  Card card = std::move(complete_.front());
  complete_.pop_front();
  return card;
}

void CardParser::Count(std::size_t bytes) {
  OpenCard& open = open_.back();
  open.bytes += bytes + 1;
  if (open.bytes > kLargestCard) {
    throw ExplainedError("the card that begins in line " + std::to_string(open.card.line) + " is larger than 64 MB",
                         u"从第" + DecimalText(open.card.line) + u"行开始的名片超过了64MB。");
  }
}

}  // namespace scrivanta
