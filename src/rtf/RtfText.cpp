#include "rtf/RtfText.h"

#include <algorithm>

#include "rtf/RtfEscape.h"
#include "rtf/RtfReader.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Longer than any control word.
constexpr std::size_t kLongestControlWord = 40;

// How many bytes at the end pass the test, as far as a control word may reach.
std::size_t CountAtEnd(std::string_view rtf, bool (*test)(char)) {
  std::size_t count = 0;
  while (count < rtf.size() && count < kLongestControlWord && test(rtf[rtf.size() - 1 - count])) {
    ++count;
  }
  return count;
}

// Whether the bytes end in a control word to which the next byte, put directly behind it, would belong.
bool WouldContinueControlWord(std::string_view rtf, char next) {
  std::string_view word = rtf;
  const std::size_t digits = CountAtEnd(word, IsDigit);
  word.remove_suffix(digits);
  if (digits > 0 && word.ends_with('-')) {
    word.remove_suffix(1);
  }
  const std::size_t letters = CountAtEnd(word, IsLetter);
  word.remove_suffix(letters);
  const std::size_t backslashes = word.size() - (word.find_last_not_of('\\') + 1);
  if (letters == 0 || backslashes % 2 == 0) {  // an even number of them is escaped backslashes
    return false;
  }
  // Behind a number a letter would be text, but not every reader takes it so.
  return next == ' ' || IsDigit(next) || IsLetter(next) || (next == '-' && digits == 0);
}

}  // namespace

class RtfText::Builder final : public RtfSink {
 public:
  explicit Builder(RtfText& out) : out_(out) {}

  void TakeUnit(const RtfUnit& unit) override {
    const Context context{out_.text_.size(), unit.isChineseCharset, unit.skippedAfterUnicode};
    if (out_.contexts_.empty() || !out_.contexts_.back().HoldsSameAs(context)) {
      out_.contexts_.push_back(context);
    }
    out_.text_ += unit.unit;
    out_.places_.push_back({static_cast<std::uint32_t>(unit.begin), static_cast<std::uint32_t>(unit.end)});
  }

  void DropLastLineBreak() override {
    out_.text_.resize(out_.text_.size() - 2);
    out_.places_.resize(out_.places_.size() - 2);
  }

 private:
  RtfText& out_;
};

RtfText::RtfText(std::string_view rtf) : rtf_(rtf) {
  Builder builder(*this);
  RtfReader(rtf, builder).Read();
}

bool RtfText::CanReplace(const Replacement& replacement) const {
  for (std::size_t i = replacement.start + 1; i < replacement.start + replacement.length; ++i) {
    for (std::size_t byte = places_[i - 1].end; byte < places_[i].begin; ++byte) {
      // Line breaks among the bytes mean nothing.
      if (rtf_[byte] != '\r' && rtf_[byte] != '\n') {
        return false;
      }
    }
  }
  return replacement.length > 0;
}

const RtfText::Context& RtfText::ContextAt(std::size_t character) const {
  return *std::prev(std::upper_bound(contexts_.begin(), contexts_.end(), character,
                                     [](std::size_t place, const Context& context) { return place < context.start; }));
}

std::string RtfText::EscapedFor(const Replacement& replacement) const {
  const Context& context = ContextAt(replacement.start);
  std::string escaped;
  std::u16string_view rest = replacement.text;
  for (;;) {
    const std::size_t end = rest.find(kLineBreak);
    escaped += RtfHexEscape(RtfEscapeText(rest.substr(0, end)), context.isChineseCharset, context.skippedAfterUnicode);
    if (end == std::u16string_view::npos) {
      return escaped;
    }
    escaped += "\\par ";
    rest.remove_prefix(end + kLineBreak.size());
  }
}

RtfText::Outcome RtfText::Replace(std::span<const Replacement> replacements) const {
  Outcome outcome;
  outcome.rtf.reserve(rtf_.size());
  std::size_t copied = 0;  // of the bytes
  const auto append = [&outcome](std::string_view bytes) {
    if (!bytes.empty() && WouldContinueControlWord(outcome.rtf, bytes.front())) {
      outcome.rtf += ' ';
    }
    outcome.rtf += bytes;
  };
  bool justReplaced = false;
  for (const Replacement& replacement : replacements) {
    if (!CanReplace(replacement)) {
      ++outcome.split;
      continue;
    }
    const std::size_t begin = places_[replacement.start].begin;
    const std::size_t end = places_[replacement.start + replacement.length - 1].end;
    const std::string_view between = rtf_.substr(copied, begin - copied);
    // Only behind a replacement may what follows have lost what kept it from a control word.
    if (justReplaced) {
      append(between);
    } else {
      outcome.rtf += between;
    }
    append(EscapedFor(replacement));
    copied = end;
    justReplaced = true;
    ++outcome.replaced;
  }
  if (justReplaced) {
    append(rtf_.substr(copied));
  } else {
    outcome.rtf += rtf_.substr(copied);
  }
  return outcome;
}

}  // namespace scrivanta
