#include "tables/PinyinInitials.h"

#include <algorithm>
#include <optional>

#include "tables/GbkInitials.h"
#include "text/CharacterBytes.h"
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
    constexpr char kToSmall = 'a' - 'A';
    for (std::size_t syllable = 0; syllable <= SyllableCount(); ++syllable) {
      const char capital = static_cast<char>(InitialOf(static_cast<Syllable>(syllable)));
      letters_ += options.small ? static_cast<char>(capital + kToSmall) : capital;
    }
    for (std::size_t unit = 0; unit < kBasicPlane; ++unit) {
      const auto itself = static_cast<char16_t>(unit);
      const Syllable syllable = hanzi_.ReadingOf(itself).syllable();
      if (syllable != kNoSyllable) {
        ofUnits_ += static_cast<char16_t>(letters_[syllable]);
      } else {
        ofUnits_ += Passes(itself) || IsHighSurrogate(itself) ? itself : u'\0';
      }
    }
    if (options.encoding == Encoding::kGbk && options.readAs == ReadAs::kText && doubtful == nullptr) {
      gbk_.emplace(letters_, ofUnits_);
    }
  }

  // In the encoding of the lines; valid until the next call.
  std::string_view Of(std::string_view line, std::uint64_t number) {
    bytes_.resize(std::max(bytes_.size(), line.size() * kMostBytesOfUnit));
    end_ = gbk_ ? gbk_->Put(line, bytes_.data()) : nullptr;
    if (end_ == nullptr) {
      ReadCharacters(line, number);
    }
    const std::string_view initials(bytes_.data(), end_);
    return options_.firstOnly ? initials.substr(0, CharacterBytes(options_.encoding, initials)) : initials;
  }

 private:
  static constexpr std::size_t kBasicPlane = 0x10000;
  static constexpr std::size_t kMostBytesOfUnit = 4;

  void ReadCharacters(std::string_view line, std::uint64_t number) {
    text_.clear();
    DecodeAppend(options_.encoding, line, text_);
    if (doubtful_ != nullptr) {
      ListDoubtful(number);
    }
    end_ = bytes_.data();
    std::size_t at = 0;
    ForEachPhrase(text_, options_.readAs, [&](std::size_t begin, PhraseReadings::Syllables syllables) {
      TakeUnits(at, begin);
      end_ = std::ranges::transform(syllables, end_, [&](Syllable syllable) { return letters_[syllable]; }).out;
      at = begin + syllables.size();
    });
    TakeUnits(at, text_.size());
  }

  // What no phrase holds. All but ASCII, which is rare here, is looked at more closely.
  void TakeUnits(std::size_t at, std::size_t behind) {
    char* end = end_;
    for (; at < behind; ++at) {
      const char16_t unit = ofUnits_[text_[at]];
      if (unit < 0x80) {
        *end = static_cast<char>(unit);
        end += unit != 0 ? 1 : 0;
      } else {
        end = PutCharacter(CodePointAt(text_, at), end);
      }
    }
    end_ = end;
  }

  char* PutCharacter(char32_t character, char* end) {
    if (const Syllable syllable = hanzi_.ReadingOf(character).syllable(); syllable != kNoSyllable) {
      *end++ = letters_[syllable];
    } else if (Passes(character)) {
      std::u16string itself;
      AppendCodePoint(itself, character);
      end = std::ranges::copy(Encode(options_.encoding, itself), end).out;
    }
    return end;
  }

  void ListDoubtful(std::uint64_t number) {
    ReadHanzi(text_, options_.readAs, readings_);
    std::uint64_t position = 0;
    bool isEnough = false;
    for (std::size_t at = 0; at < text_.size() && !isEnough;) {
      ++position;
      const Reading reading = readings_[at];
      const char32_t character = CodePointAt(text_, at);
      if (reading.isDoubtful()) {
        const auto letter = static_cast<char16_t>(letters_[reading.syllable()]);
        doubtful_->push_back({number, position, character, letter, OtherInitialsOf(character)});
      }
      isEnough = options_.firstOnly && (reading.syllable() != kNoSyllable || Passes(character));
      at += UnitsOf(character);
    }
  }

  const InitialsOptions& options_;
  std::vector<DoubtfulCharacter>* doubtful_;
  const HanziData& hanzi_ = HanziData::Get();
  std::string letters_;  // by syllable
  // What a unit gives: 0 for nothing, a high surrogate for itself.
  std::u16string ofUnits_;
  // Where it can be had; what it does not read is decoded.
  std::optional<GbkInitials> gbk_;
  std::u16string text_;
  std::vector<Reading> readings_;
  std::string bytes_;
  char* end_ = nullptr;  // of the initials so far, in bytes_
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
