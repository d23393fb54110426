#include "tables/GbkInitials.h"

#include <algorithm>

#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr unsigned kAsciiEnd = 0x80;

unsigned ByteAt(const char* at) {
  return static_cast<unsigned char>(*at);
}

char16_t CodeAt(const char* at) {
  return static_cast<char16_t>(ByteAt(at) << 8U | ByteAt(at + 1));
}

// The letter, unless it is 0.
char* PutGiven(char letter, char* output) {
  *output = letter;
  return output + (letter != 0 ? 1 : 0);
}

}  // namespace

GbkInitials::GbkInitials(std::string_view letters, std::u16string_view ofUnits) : letters_(letters) {
  for (std::size_t unit = 0; unit < ofUnits.size(); ++unit) {
    const auto character = static_cast<char16_t>(unit);
    const std::string bytes = Encode(Encoding::kGbk, {&character, 1});
    const char16_t given = ofUnits[unit];
    if (unit < kAsciiEnd) {
      ofCodes_[unit] = static_cast<char>(given);
    } else if (bytes.size() == 2) {
      ofCodes_[CodeAt(bytes.data())] = given < kAsciiEnd ? static_cast<char>(given) : kItself;
    }
  }
}

// Whether a phrase begins with a character is seen at the one behind it; its letter is taken back then.
char* GbkInitials::Put(std::string_view line, char* output) {
  const char* at = line.data();
  const char* const behind = at + line.size();
  char16_t before = 0;
  char* outputBefore = output;
  while (at < behind) {
    const unsigned lead = ByteAt(at);
    if (lead < kAsciiEnd) {
      output = PutGiven(ofCodes_[lead], output);
      before = 0;
      ++at;
      continue;
    }
    if (behind - at < 2) {
      return nullptr;
    }
    const char16_t code = CodeAt(at);
    if (phrases_.MayBegin(before, code)) {
      const PhraseReadings::Syllables phrase = PhraseAt(at - 2, behind);
      if (!phrase.empty()) {
        output =
            std::ranges::transform(phrase, outputBefore, [this](Syllable syllable) { return letters_[syllable]; }).out;
        at += 2 * phrase.size() - 2;
        before = 0;
        continue;
      }
    }
    outputBefore = output;
    const char given = ofCodes_[code];
    if (given == kItself) {
      output = std::copy_n(at, 2, output);
    } else if (given == kRare) {
      return nullptr;
    } else {
      output = PutGiven(given, output);
    }
    before = code;
    at += 2;
  }
  return output;
}

PhraseReadings::Syllables GbkInitials::PhraseAt(const char* at, const char* behind) {
  codes_.clear();
  for (; behind - at >= 2 && ByteAt(at) >= kAsciiEnd && codes_.size() < phrases_.mostCharacters(); at += 2) {
    codes_ += CodeAt(at);
  }
  return phrases_.FindAtBeginning(codes_);
}

}  // namespace scrivanta
