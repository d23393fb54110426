#include "crypto/RndXorHash.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "crypto/CipherError.h"
#include "crypto/HexText.h"
#include "text/DateTimeText.h"
#include "text/DecimalText.h"
#include "text/Hexadecimal.h"

namespace scrivanta {

namespace {

constexpr int kMostSalts = 10'000;  // one in 300 fails, so this many fail only when all do

std::u16string UnitsToHex(std::u16string_view units) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  std::u16string text;
  text.reserve(units.size() * 6);
  for (const char16_t unit : units) {
    for (const int shift : {4, 0, 12, 8}) {
      text += kDigits[(unit >> shift) & 15];
      if (shift == 0 || shift == 8) {
        text += u' ';
      }
    }
  }
  return text;
}

struct Units {
  std::u16string text;
  bool whole = true;  // false: the last one lacks digits, which are taken as 0
};

// Nothing when there is a character that is neither a digit nor a space.
std::optional<Units> UnitsFromHex(std::u16string_view text) {
  Units units;
  units.text.reserve(text.size() / 6);
  unsigned unit = 0;
  int digits = 0;
  for (const char16_t character : text) {
    if (character == u' ') {
      continue;
    }
    const int value = HexDigitValue(character);
    if (value < 0) {
      return std::nullopt;
    }
    // The low byte comes first, each byte with its high digit first.
    constexpr int kShifts[] = {4, 0, 12, 8};
    unit |= static_cast<unsigned>(value) << kShifts[digits];
    if (++digits == 4) {
      units.text += static_cast<char16_t>(unit);
      unit = 0;
      digits = 0;
    }
  }
  if (digits != 0) {
    units.text += static_cast<char16_t>(unit);
    units.whole = false;
  }
  return units;
}

}  // namespace

void RndXorHash::KeySize(std::int16_t value) {
  keySize_ = value > 0 ? value : kDefaultKeySize;
  constexpr std::size_t kFirstPrintable = 33;
  constexpr std::size_t kLastIndex = 93;  // of the printable characters "!" to "~"; combined with AND on purpose
  key_.clear();
  for (std::size_t i = 0; i < static_cast<std::size_t>(keySize_); ++i) {
    key_ += static_cast<char16_t>((i & kLastIndex) + kFirstPrintable);
  }
}

std::u16string RndXorHash::Encrypt(std::u16string_view plaintext, std::u16string_view password,
                                   std::chrono::local_time<std::chrono::milliseconds> now) {
  const std::u16string saltText = DateText(now) + TimeText(now);
  std::u16string units = EncryptWithSalt(plaintext, password, saltText);
  for (int counter = 1; DecryptUnits(units, password).check != RndXorHashCheck::kPassed; ++counter) {
    if (counter == kMostSalts) {
      throw CipherError(1, "CRndXorHash.StringEncrypt - no ciphertext passes its own check");
    }
    units = EncryptWithSalt(plaintext, password, saltText + DecimalText(counter));
  }
  return UnitsToHex(units);
}

RndXorHashResult RndXorHash::Decrypt(std::u16string_view ciphertext, std::u16string_view password) {
  const std::optional<Units> units = UnitsFromHex(ciphertext);
  if (!units) {
    return {RndXorHashCheck::kMalformed, {}};
  }
  RndXorHashResult result = DecryptUnits(units->text, password);
  if (result.check == RndXorHashCheck::kPassed && !units->whole) {
    return {RndXorHashCheck::kAltered, {}};
  }
  return result;
}

void RndXorHash::Seed(std::u16string_view text) {
  random_.Reseed(random_.Next(-1.0F));
  for (const char16_t unit : text) {
    const float drawn = random_.Next();
    const float restarted = random_.Next(-drawn * static_cast<float>(unit));
    random_.Reseed(restarted > 0.5F ? 1.0 : 0.0);  // a half goes to the even 0
  }
}

std::u16string RndXorHash::Stream(std::u16string_view text) {
  constexpr float kMasks = 128;  // only the low seven bits of a unit change
  std::u16string result(text);
  for (char16_t& unit : result) {
    unit = static_cast<char16_t>(unit ^ static_cast<unsigned>(random_.Next() * kMasks));
  }
  return result;
}

std::u16string RndXorHash::Hash(std::u16string_view text) {
  const std::u16string keyed = std::u16string(text) + key_;
  Seed(keyed);
  const std::u16string mixed = Stream(keyed);
  Seed(mixed);
  return Stream(key_);
}

std::u16string RndXorHash::EncryptWithSalt(std::u16string_view plaintext, std::u16string_view password,
                                           std::u16string_view saltText) {
  std::u16string units = Hash(saltText);
  units += Hash(units + std::u16string(password));
  units += Hash(plaintext);
  Seed(units);
  units += Stream(plaintext);
  return units;
}

RndXorHashResult RndXorHash::DecryptUnits(std::u16string_view units, std::u16string_view password) {
  const auto size = static_cast<std::size_t>(keySize_);
  const std::u16string_view header = units.substr(0, 3 * size);
  const std::u16string salt(header.substr(0, size));
  // A hash that stands in the header earlier as well, across salt and check, counts as a wrong password; Encrypt makes
  // no such text.
  if (header.find(Hash(salt + std::u16string(password))) != size) {
    return {RndXorHashCheck::kWrongPassword, {}};
  }
  Seed(header);
  std::u16string plaintext = Stream(units.substr(header.size()));
  if (Hash(plaintext) != header.substr(2 * size)) {
    return {RndXorHashCheck::kAltered, {}};
  }
  return {RndXorHashCheck::kPassed, std::move(plaintext)};
}

}  // namespace scrivanta
