// The form on the AES instructions of x86-64 processors. The instructions are allowed to these functions alone, so the
// program runs on processors without them.
#include <immintrin.h>

#include "crypto/Rijndael.h"

namespace scrivanta {

namespace {

// A round takes a few cycles to come out, but one can be begun in every cycle: eight blocks side by side fill the gap.
constexpr std::size_t kSideBySide = 8;

__attribute__((target("sse2"))) inline __m128i Load(const void* memory) {
  return _mm_loadu_si128(static_cast<const __m128i*>(memory));
}

__attribute__((target("sse2"))) inline void Store(__m128i value, std::uint8_t* memory) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(memory), value);
}

template <bool kEncrypt>
__attribute__((target("aes,sse2"))) inline __m128i Round(__m128i state, __m128i roundKey) {
  return kEncrypt ? _mm_aesenc_si128(state, roundKey) : _mm_aesdec_si128(state, roundKey);
}

template <bool kEncrypt>
__attribute__((target("aes,sse2"))) inline __m128i LastRound(__m128i state, __m128i roundKey) {
  return kEncrypt ? _mm_aesenclast_si128(state, roundKey) : _mm_aesdeclast_si128(state, roundKey);
}

template <bool kEncrypt, std::size_t kCount>
__attribute__((target("aes,sse2"))) inline void BlocksSideBySide(const __m128i* roundKeys, std::size_t rounds,
                                                                 const std::uint8_t* input, std::uint8_t* output) {
  __m128i state[kCount];
#pragma GCC unroll 8
  for (std::size_t i = 0; i < kCount; ++i) {
    state[i] = _mm_xor_si128(Load(input + i * kRijndaelBlockSize), roundKeys[0]);
  }
  for (std::size_t round = 1; round < rounds; ++round) {
#pragma GCC unroll 8
    for (std::size_t i = 0; i < kCount; ++i) {
      state[i] = Round<kEncrypt>(state[i], roundKeys[round]);
    }
  }
#pragma GCC unroll 8
  for (std::size_t i = 0; i < kCount; ++i) {
    Store(LastRound<kEncrypt>(state[i], roundKeys[rounds]), output + i * kRijndaelBlockSize);
  }
}

template <bool kEncrypt>
__attribute__((target("aes,sse2"))) void Blocks(const RijndaelKey& key, std::span<const std::uint8_t> input,
                                                std::span<std::uint8_t> output) {
  const RijndaelKey::Schedule& schedule = kEncrypt ? key.encryption() : key.decryption();
  __m128i roundKeys[15];
  for (std::size_t i = 0; i <= key.rounds(); ++i) {
    roundKeys[i] = Load(schedule.data() + 4 * i);
  }
  constexpr std::size_t kStep = kSideBySide * kRijndaelBlockSize;
  std::size_t at = 0;
  for (; at + kStep <= input.size(); at += kStep) {
    BlocksSideBySide<kEncrypt, kSideBySide>(roundKeys, key.rounds(), input.data() + at, output.data() + at);
  }
  for (; at < input.size(); at += kRijndaelBlockSize) {
    BlocksSideBySide<kEncrypt, 1>(roundKeys, key.rounds(), input.data() + at, output.data() + at);
  }
}

}  // namespace

const RijndaelForm* RijndaelInstructions() {
  static constexpr RijndaelForm kForm{Blocks<true>, Blocks<false>};
  return __builtin_cpu_supports("aes") != 0 ? &kForm : nullptr;
}

}  // namespace scrivanta
