#include "tables/PinyinInitials.h"

#include <algorithm>

#include "text/CodePoints.h"
#include "text/DecimalText.h"

namespace scrivanta {

namespace {

struct CodeRange {
  char32_t first;
  char32_t last;
};

// Blanks, punctuation, symbols, private characters and what is no text, beyond ASCII.
constexpr CodeRange kDropped[] = {
    {0x80, 0xBF},     {0x2000, 0x2BFF}, {0x3000, 0x3004}, {0x3008, 0x3020}, {0x3030, 0x303F}, {0xD800, 0xF8FF},
    {0xFE00, 0xFE6F}, {0xFF00, 0xFF0F}, {0xFF1A, 0xFF20}, {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF},
};

bool Passes(char32_t c) {
  if (c < 0x80) {
    return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
  }
  for (const CodeRange& range : kDropped) {
    if (c >= range.first && c <= range.last) {
      return false;
    }
  }
  return true;
}

void AppendCodePoint(std::u16string& text, char32_t c) {
  if (c > 0xFFFF) {
    text += HighSurrogateOf(c);
    text += LowSurrogateOf(c);
  } else {
    text += static_cast<char16_t>(c);
  }
}

class InitialsOfLine {
 public:
  InitialsOfLine(const InitialsOptions& options, std::vector<DoubtfulCharacter>* doubtful)
      : options_(options), doubtful_(doubtful) {
    constexpr char16_t kToSmall = u'a' - u'A';
    for (std::size_t syllable = 0; syllable <= SyllableCount(); ++syllable) {
      const char16_t capital = InitialOf(static_cast<Syllable>(syllable));
      letters_ += options.small ? static_cast<char16_t>(capital + kToSmall) : capital;
    }
  }

  // In the encoding of the lines; valid until the next call.
  std::string_view Of(std::string_view line, std::uint64_t number) {
    text_.clear();
    bytes_.clear();
    DecodeAppend(options_.encoding, line, text_);
    ReadHanzi(text_, options_.readAs, readings_);
    initials_.resize(text_.size());  // no character gives more units than it has
    char16_t* end = initials_.data();
    std::uint64_t position = 0;
    for (std::size_t at = 0; at < text_.size() && !(options_.firstOnly && end != initials_.data());) {
      ++position;
      const Reading reading = readings_[at];
      const char32_t character = CodePointAt(text_, at);
      if (reading.syllable() != kNoSyllable) {
        const char16_t letter = letters_[reading.syllable()];
        *end++ = letter;
        if (doubtful_ != nullptr && reading.isDoubtful()) {
          doubtful_->push_back({number, position, character, letter, OtherInitialsOf(character)});
        }
      } else if (Passes(character)) {
        end = std::copy_n(text_.data() + at, UnitsOf(character), end);
      }
      at += UnitsOf(character);
    }
    EncodeAppend(options_.encoding, {initials_.data(), end}, bytes_);
    return bytes_;
  }

 private:
  const InitialsOptions& options_;
  std::vector<DoubtfulCharacter>* doubtful_;
  std::u16string letters_;  // by syllable
  std::u16string text_;
  std::vector<Reading> readings_;
  std::u16string initials_;
  std::string bytes_;
};

}  // namespace

void AddInitials(LineReader& in, LineWriter& out, const InitialsOptions& options,
                 std::vector<DoubtfulCharacter>* doubtful) {
  InitialsOfLine initials(options, doubtful);
  while (in.Next()) {
    const std::string_view letters = initials.Of(in.line(), in.number());
    switch (options.place) {
      case InitialsPlace::kBefore:
        out.WriteRaw(letters);
        if (!letters.empty()) {
          out.WriteRaw(" ");
        }
        out.WriteLine(in.line());
        break;
      case InitialsPlace::kBehind:
        out.WriteRaw(in.line());
        if (!letters.empty()) {
          out.WriteRaw(" ");
        }
        out.WriteLine(letters);
        break;
      case InitialsPlace::kColumn:
        out.WriteRaw(in.line());
        out.WriteRaw("\t");
        out.WriteLine(letters);
        break;
      case InitialsPlace::kOnly:
        out.WriteLine(letters);
        break;
    }
  }
}

std::u16string DescribeDoubtful(const DoubtfulCharacter& doubtful) {
  std::u16string line = DecimalText(doubtful.line) + u"\t" + DecimalText(doubtful.position) + u"\t";
  AppendCodePoint(line, doubtful.character);
  return line + u"\t" + doubtful.letter + u"\t" + doubtful.others;
}

}  // namespace scrivanta
