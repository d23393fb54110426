#include "crypto/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "crypto/Chunk.h"
#include "crypto/Octets.h"

namespace scrivanta {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Two characters for every value of twelve bits.
constexpr auto MakePairs() {
  std::array<std::array<char, 2>, 4096> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i] = {kAlphabet[i >> 6], kAlphabet[i & 63]};
  }
  return pairs;
}

// The six bits of a character, 0 when it is not in the alphabet.
constexpr auto MakeValues() {
  std::array<std::uint8_t, 256> values{};
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}

constexpr auto kPairs = MakePairs();
constexpr auto kValues = MakeValues();

void EncodeGroup(const std::uint8_t* bytes, char* text) {
  const auto bits = static_cast<unsigned>(bytes[0] << 16 | bytes[1] << 8 | bytes[2]);
  const std::array<char, 2>& first = kPairs[bits >> 12];
  const std::array<char, 2>& second = kPairs[bits & 0xFFF];
  text[0] = first[0];
  text[1] = first[1];
  text[2] = second[0];
  text[3] = second[1];
}

void DecodeGroup(const std::uint8_t* text, char* bytes) {
  const unsigned bits =
      static_cast<unsigned>(kValues[text[0]] << 18 | kValues[text[1]] << 12 | kValues[text[2]] << 6 | kValues[text[3]]);
  bytes[0] = static_cast<char>(bits >> 16);
  bytes[1] = static_cast<char>(bits >> 8);
  bytes[2] = static_cast<char>(bits);
}

constexpr std::size_t EncodedSize(std::size_t bytes) {
  return (bytes + 2) / 3 * 4;
}

// Writes EncodedSize characters.
void EncodeInto(std::span<const std::uint8_t> bytes, char* text) {
  std::size_t at = 0;
  for (; at + 3 <= bytes.size(); at += 3, text += 4) {
    EncodeGroup(bytes.data() + at, text);
  }
  const std::size_t rest = bytes.size() - at;
  if (rest != 0) {
    const std::uint8_t last[3] = {bytes[at], rest == 2 ? bytes[at + 1] : std::uint8_t{0}, 0};
    EncodeGroup(last, text);
    text[3] = '=';
    if (rest == 1) {
      text[2] = '=';
    }
  }
}

// Whole groups of four into three bytes each.
void DecodeInto(std::span<const std::uint8_t> groups, char* bytes) {
  for (std::size_t at = 0; at + 4 <= groups.size(); at += 4, bytes += 3) {
    DecodeGroup(groups.data() + at, bytes);
  }
}

// Whether so many characters can be decoded: a whole number of groups, or one character more.
bool IsDecodableSize(std::uint64_t size) {
  return size % 4 <= 1;
}

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
  std::string text(EncodedSize(bytes.size()), '\0');
  EncodeInto(AsOctets(bytes), text.data());
  return text;
}

std::optional<std::string> DecodeBase64(std::string_view text) {
  if (!IsDecodableSize(text.size())) {
    return std::nullopt;
  }
  std::string bytes(text.size() / 4 * 3, '\0');
  DecodeInto(AsOctets(text), bytes.data());
  bytes.resize(std::min(bytes.find('\0'), bytes.size()));
  return bytes;
}

namespace {

// Whole groups of three bytes as well as of four characters; what is read and what is written stays in the cache.
constexpr std::size_t kMostInBlock = 96 * 1024;

std::size_t BlockSizeFor(const ByteSource& source) {
  return ChunkSizeFor(source, 12, kMostInBlock);
}

// Hands the source on in blocks of whole groups; the rest comes last, and may be empty.
template <typename Work>
void InBlocks(ByteSource& source, std::size_t blockSize, Progress& progress, Work work) {
  const Chunk memory(blockSize);
  std::uint64_t done = 0;
  for (;;) {
    const std::span<char> block = memory.bytes().first(FillFrom(source, memory.bytes()));
    done += block.size();
    progress.Report(done, source.Size().value_or(0));
    work(std::span<const std::uint8_t>(AsOctets(block)));
    if (block.size() < blockSize) {
      return;
    }
  }
}

}  // namespace

void EncodeBase64Stream(ByteSource& source, ByteSink& sink, Progress& progress) {
  const std::size_t blockSize = BlockSizeFor(source);
  const Chunk memory(EncodedSize(blockSize));
  char* const text = memory.bytes().data();
  InBlocks(source, blockSize, progress, [&](std::span<const std::uint8_t> bytes) {
    EncodeInto(bytes, text);
    sink.Write({text, EncodedSize(bytes.size())});
  });
}

bool DecodeBase64Stream(ByteSource& source, ByteSink& sink, Progress& progress) {
  const std::size_t blockSize = BlockSizeFor(source);
  const Chunk memory(blockSize / 4 * 3);
  char* const bytes = memory.bytes().data();
  bool atNul = false;
  std::uint64_t size = 0;
  InBlocks(source, blockSize, progress, [&](std::span<const std::uint8_t> text) {
    size += text.size();
    if (atNul) {
      return;
    }
    DecodeInto(text, bytes);
    const std::string_view decoded(bytes, text.size() / 4 * 3);
    const std::size_t nul = decoded.find('\0');
    atNul = nul != std::string_view::npos;
    sink.Write(decoded.substr(0, nul));
  });
  return IsDecodableSize(size);
}

}  // namespace scrivanta
