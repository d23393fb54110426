#include "crypto/Rijndael.h"

#include <bit>
#include <stdexcept>

namespace scrivanta {

namespace {

using Table = std::array<std::uint32_t, 256>;

// The product with x in the field of the standard, polynomials modulo x^8 + x^4 + x^3 + x + 1.
constexpr std::uint8_t TimesX(unsigned value) {
  return static_cast<std::uint8_t>((value << 1) ^ ((value & 0x80) != 0 ? 0x11B : 0));
}

constexpr std::uint8_t Times(unsigned a, unsigned b) {
  unsigned product = 0;
  for (; b != 0; b >>= 1, a = TimesX(a)) {
    product ^= (b & 1) != 0 ? a : 0;
  }
  return static_cast<std::uint8_t>(product);
}

struct Tables {
  std::array<std::uint8_t, 256> sBox{};
  std::array<std::uint8_t, 256> inverseSBox{};
  // What the byte in row i contributes to a column after SubBytes and MixColumns, and after their inverses.
  std::array<Table, 4> forward{};
  std::array<Table, 4> inverse{};
};

constexpr std::uint32_t Word(unsigned b0, unsigned b1, unsigned b2, unsigned b3) {
  return b0 | b1 << 8 | b2 << 16 | b3 << 24;
}

constexpr unsigned Byte(std::uint32_t word, int index) {
  return word >> (8 * index) & 0xFF;
}

constexpr Tables MakeTables() {
  Tables tables;
  // 3 generates every value but 0, and 0xF6 is its inverse: walking up and down at once pairs each value with its own.
  unsigned value = 1;
  unsigned inverse = 1;
  do {
    value = Times(value, 3);
    inverse = Times(inverse, 0xF6);
    const auto byte = static_cast<std::uint8_t>(inverse);
    tables.sBox[value] = static_cast<std::uint8_t>(byte ^ std::rotl(byte, 1) ^ std::rotl(byte, 2) ^ std::rotl(byte, 3) ^
                                                   std::rotl(byte, 4) ^ 0x63);
  } while (value != 1);
  tables.sBox[0] = 0x63;
  for (unsigned i = 0; i < 256; ++i) {
    tables.inverseSBox[tables.sBox[i]] = static_cast<std::uint8_t>(i);
  }
  for (unsigned i = 0; i < 256; ++i) {
    const unsigned s = tables.sBox[i];
    const unsigned r = tables.inverseSBox[i];
    const std::uint32_t forward = Word(TimesX(s), s, s, Times(s, 3));
    const std::uint32_t backward = Word(Times(r, 14), Times(r, 9), Times(r, 13), Times(r, 11));
    for (int row = 0; row < 4; ++row) {
      tables.forward[static_cast<std::size_t>(row)][i] = std::rotl(forward, 8 * row);
      tables.inverse[static_cast<std::size_t>(row)][i] = std::rotl(backward, 8 * row);
    }
  }
  return tables;
}

constexpr Tables kTables = MakeTables();

constexpr std::uint32_t SubWord(std::uint32_t word, const std::array<std::uint8_t, 256>& box) {
  return Word(box[Byte(word, 0)], box[Byte(word, 1)], box[Byte(word, 2)], box[Byte(word, 3)]);
}

constexpr std::uint32_t InverseMixColumn(std::uint32_t word) {
  const std::uint32_t substituted = SubWord(word, kTables.sBox);
  std::uint32_t mixed = 0;
  for (int row = 0; row < 4; ++row) {
    mixed ^= kTables.inverse[static_cast<std::size_t>(row)][Byte(substituted, row)];
  }
  return mixed;
}

std::uint32_t Load(const std::uint8_t* bytes) {
  return Word(bytes[0], bytes[1], bytes[2], bytes[3]);
}

void Store(std::uint32_t word, std::uint8_t* bytes) {
  for (int i = 0; i < 4; ++i) {
    bytes[i] = static_cast<std::uint8_t>(Byte(word, i));
  }
}

// One column of the state after a round. Row i of it comes from the argument i: ShiftRows has chosen the columns.
inline std::uint32_t Mixed(const std::array<Table, 4>& tables, std::uint32_t c0, std::uint32_t c1, std::uint32_t c2,
                           std::uint32_t c3, std::uint32_t roundKey) {
  return tables[0][Byte(c0, 0)] ^ tables[1][Byte(c1, 1)] ^ tables[2][Byte(c2, 2)] ^ tables[3][Byte(c3, 3)] ^ roundKey;
}

inline std::uint32_t Substituted(const std::array<std::uint8_t, 256>& box, std::uint32_t c0, std::uint32_t c1,
                                 std::uint32_t c2, std::uint32_t c3, std::uint32_t roundKey) {
  return Word(box[Byte(c0, 0)], box[Byte(c1, 1)], box[Byte(c2, 2)], box[Byte(c3, 3)]) ^ roundKey;
}

// The four columns of a block, each from the columns that its rows are shifted out of: to the left by kShift, 2 and
// 4 - kShift columns, where kShift is 1 for encrypting and 3 for its inverse.
template <int kShift, typename Column>
inline void Round(std::uint32_t (&s)[4], const std::uint32_t* roundKey, Column column) {
  const std::uint32_t t0 = column(s[0], s[kShift], s[2], s[4 - kShift], roundKey[0]);
  const std::uint32_t t1 = column(s[1], s[(1 + kShift) % 4], s[3], s[(5 - kShift) % 4], roundKey[1]);
  const std::uint32_t t2 = column(s[2], s[(2 + kShift) % 4], s[0], s[(6 - kShift) % 4], roundKey[2]);
  const std::uint32_t t3 = column(s[3], s[(3 + kShift) % 4], s[1], s[(7 - kShift) % 4], roundKey[3]);
  s[0] = t0;
  s[1] = t1;
  s[2] = t2;
  s[3] = t3;
}

template <int kShift>
void Blocks(const RijndaelKey::Schedule& schedule, std::size_t rounds, const std::array<Table, 4>& tables,
            const std::array<std::uint8_t, 256>& lastBox, std::span<const std::uint8_t> input,
            std::span<std::uint8_t> output) {
  const auto mixed = [&tables](auto... columns) { return Mixed(tables, columns...); };
  const auto substituted = [&lastBox](auto... columns) { return Substituted(lastBox, columns...); };
  for (std::size_t at = 0; at < input.size(); at += kRijndaelBlockSize) {
    std::uint32_t state[4];
    for (std::size_t i = 0; i < 4; ++i) {
      state[i] = Load(input.data() + at + 4 * i) ^ schedule[i];
    }
    const std::uint32_t* roundKey = schedule.data() + 4;
    for (std::size_t round = 1; round < rounds; ++round, roundKey += 4) {
      Round<kShift>(state, roundKey, mixed);
    }
    Round<kShift>(state, roundKey, substituted);
    for (std::size_t i = 0; i < 4; ++i) {
      Store(state[i], output.data() + at + 4 * i);
    }
  }
}

void EncryptWithTables(const RijndaelKey& key, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) {
  Blocks<1>(key.encryption(), key.rounds(), kTables.forward, kTables.sBox, input, output);
}

void DecryptWithTables(const RijndaelKey& key, std::span<const std::uint8_t> input, std::span<std::uint8_t> output) {
  Blocks<3>(key.decryption(), key.rounds(), kTables.inverse, kTables.inverseSBox, input, output);
}

}  // namespace

RijndaelKey::RijndaelKey(std::span<const std::uint8_t> key, int keyBits) {
  if (keyBits != 128 && keyBits != 192 && keyBits != 256) {
    throw std::invalid_argument("a Rijndael key has 128, 192 or 256 bits");
  }
  const std::size_t keyWords = static_cast<std::size_t>(keyBits) / 32;
  if (key.size() < keyWords * 4) {
    throw std::invalid_argument("the Rijndael key is too short");
  }
  rounds_ = keyWords + 6;
  Expand(key, keyWords);
  Invert();
}

void RijndaelKey::Expand(std::span<const std::uint8_t> key, std::size_t keyWords) {
  for (std::size_t i = 0; i < keyWords; ++i) {
    encryption_[i] = Load(key.data() + 4 * i);
  }
  std::uint32_t roundConstant = 1;
  for (std::size_t i = keyWords; i < 4 * (rounds_ + 1); ++i) {
    std::uint32_t word = encryption_[i - 1];
    if (i % keyWords == 0) {
      word = SubWord(std::rotr(word, 8), kTables.sBox) ^ roundConstant;
      roundConstant = TimesX(roundConstant);
    } else if (keyWords == 8 && i % keyWords == 4) {
      word = SubWord(word, kTables.sBox);
    }
    encryption_[i] = encryption_[i - keyWords] ^ word;
  }
}

void RijndaelKey::Invert() {
  for (std::size_t round = 0; round <= rounds_; ++round) {
    const bool atAnEnd = round == 0 || round == rounds_;
    for (std::size_t i = 0; i < 4; ++i) {
      const std::uint32_t word = encryption_[4 * (rounds_ - round) + i];
      decryption_[4 * round + i] = atAnEnd ? word : InverseMixColumn(word);
    }
  }
}

const RijndaelForm& RijndaelTables() {
  static constexpr RijndaelForm kForm{EncryptWithTables, DecryptWithTables};
  return kForm;
}

const RijndaelForm& FastestRijndael() {
  const RijndaelForm* instructions = RijndaelInstructions();
  return instructions != nullptr ? *instructions : RijndaelTables();
}

}  // namespace scrivanta
