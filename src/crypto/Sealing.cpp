#include "crypto/Sealing.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <vector>

#include <sodium.h>

#include "crypto/Armor.h"
#include "crypto/Chunk.h"
#include "text/DocumentFormat.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr std::string_view kMagic = "SCRVSEAL";
constexpr unsigned char kVersion = 1;
constexpr std::uint32_t kMostPasses = 16;
constexpr std::uint32_t kMostKibibytes = 1024 * 1024;
constexpr std::size_t kChunk = 64 * 1024;  // bytes, before they are encrypted
constexpr std::size_t kSealedChunk = kChunk + crypto_secretstream_xchacha20poly1305_ABYTES;
constexpr std::u16string_view kBlanks = u" \t\r\n";

using Bytes = std::vector<unsigned char>;

unsigned char* BytesOf(char* text) {
  return reinterpret_cast<unsigned char*>(text);
}

std::string_view TextOf(const unsigned char* bytes, std::size_t count) {
  return {reinterpret_cast<const char*>(bytes), count};
}

void StartLibrary() {
  if (sodium_init() < 0) {
    throw std::runtime_error("the encryption library cannot be started");
  }
}

// What stands in front of the chunks, but the stream's own header. Numbers are little-endian.
struct Head {
  static constexpr std::size_t kBytes = 33;

  SealingCost cost;
  std::array<unsigned char, crypto_pwhash_SALTBYTES> salt{};

  std::array<unsigned char, kBytes> Packed() const {
    std::array<unsigned char, kBytes> packed{};
    auto* at = std::copy(kMagic.begin(), kMagic.end(), packed.data());
    *at++ = kVersion;
    for (const std::uint32_t number : {cost.passes, cost.kibibytes}) {
      for (unsigned shift = 0; shift < 32; shift += 8) {
        *at++ = static_cast<unsigned char>(number >> shift);
      }
    }
    std::ranges::copy(salt, at);
    return packed;
  }

  static Head Unpacked(const std::array<unsigned char, kBytes>& packed) {
    if (!std::equal(kMagic.begin(), kMagic.end(), packed.begin())) {
      throw ExplainedError("this is no sealed text", u"这不是用口令加密的内容。");
    }
    if (packed[kMagic.size()] != kVersion) {
      throw ExplainedError("this was sealed by a later version of the program",
                           u"这是更新版本的程序加密的，本版本不认识。");
    }
    const auto* at = packed.data() + kMagic.size() + 1;
    const auto number = [&at] {
      std::uint32_t value = 0;
      for (unsigned shift = 0; shift < 32; shift += 8) {
        value |= static_cast<std::uint32_t>(*at++) << shift;
      }
      return value;
    };
    Head head;
    head.cost.passes = number();
    head.cost.kibibytes = number();
    std::copy_n(at, head.salt.size(), head.salt.begin());
    if (head.cost.passes > kMostPasses || head.cost.kibibytes > kMostKibibytes) {
      throw ExplainedError("the sealed text asks for more time or memory than is allowed",
                           u"这份密文要求的计算量超出了允许的范围，可能被人改动过。");
    }
    return head;
  }
};

// Overwritten when it is not needed any more.
class StreamKey {
 public:
  StreamKey(std::u16string_view password, const Head& head) {
    const std::string bytes = Encode(Encoding::kUtf8, password);
    constexpr std::size_t kBytesOfKibibyte = 1024;
    if (crypto_pwhash(key_.data(), key_.size(), bytes.data(), bytes.size(), head.salt.data(), head.cost.passes,
                      head.cost.kibibytes * kBytesOfKibibyte, crypto_pwhash_ALG_ARGON2ID13) != 0) {
      throw ExplainedError(
          "there is not enough memory to make the key from the password, or the sealed text is damaged",
          u"由口令计算密钥失败：内存不够，或密文的开头被改动过。");
    }
  }
  StreamKey(const StreamKey&) = delete;
  StreamKey& operator=(const StreamKey&) = delete;
  ~StreamKey() { sodium_memzero(key_.data(), key_.size()); }

  const unsigned char* data() const noexcept { return key_.data(); }

 private:
  std::array<unsigned char, crypto_secretstream_xchacha20poly1305_KEYBYTES> key_{};
};

std::span<char> CharsOf(std::span<unsigned char> bytes) {
  return {reinterpret_cast<char*>(bytes.data()), bytes.size()};
}

[[noreturn]] void ThrowChanged() {
  throw ExplainedError("the sealed text was changed or cut", u"密文不完整，或被改动过。");
}

}  // namespace

void Seal(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress, SealingCost cost) {
  StartLibrary();
  Head head{.cost = cost};
  randombytes_buf(head.salt.data(), head.salt.size());
  const StreamKey key(password, head);
  crypto_secretstream_xchacha20poly1305_state state;
  std::array<unsigned char, crypto_secretstream_xchacha20poly1305_HEADERBYTES> streamHeader{};
  crypto_secretstream_xchacha20poly1305_init_push(&state, streamHeader.data(), key.data());
  ArmorSink armor(sink);
  const auto packed = head.Packed();
  armor.Write(TextOf(packed.data(), packed.size()));
  armor.Write(TextOf(streamHeader.data(), streamHeader.size()));

  Bytes chunk(kChunk);
  Bytes next(kChunk);
  Bytes sealed(kSealedChunk);
  std::size_t count = FillFrom(source, CharsOf(chunk));
  std::uint64_t done = 0;
  for (bool isLast = false; !isLast;) {
    const std::size_t nextCount = count < kChunk ? 0 : FillFrom(source, CharsOf(next));
    isLast = nextCount == 0;
    // The head is proven right with the first chunk.
    crypto_secretstream_xchacha20poly1305_push(
        &state, sealed.data(), nullptr, chunk.data(), count, packed.data(), done == 0 ? packed.size() : 0,
        isLast ? crypto_secretstream_xchacha20poly1305_TAG_FINAL : crypto_secretstream_xchacha20poly1305_TAG_MESSAGE);
    armor.Write(TextOf(sealed.data(), count + crypto_secretstream_xchacha20poly1305_ABYTES));
    done += count;
    progress.Report(done, source.Size().value_or(0));
    chunk.swap(next);
    count = nextCount;
  }
  armor.Close();
}

void Unseal(std::u16string_view password, ByteSource& source, ByteSink& sink, Progress& progress) {
  StartLibrary();
  ArmorSource armor(source, progress);
  std::array<unsigned char, Head::kBytes> packed{};
  if (!armor.Begins() || FillFrom(armor, CharsOf(packed)) < packed.size()) {
    throw ExplainedError("this is no sealed text, or only a part of one",
                         u"这不是用口令加密的内容，或只是其中一部分。");
  }
  const Head head = Head::Unpacked(packed);
  std::array<unsigned char, crypto_secretstream_xchacha20poly1305_HEADERBYTES> streamHeader{};
  if (FillFrom(armor, CharsOf(streamHeader)) < streamHeader.size()) {
    ThrowChanged();
  }
  const StreamKey key(password, head);
  crypto_secretstream_xchacha20poly1305_state state;
  crypto_secretstream_xchacha20poly1305_init_pull(&state, streamHeader.data(), key.data());
  Bytes sealed(kSealedChunk);
  std::string text(kChunk, '\0');
  unsigned char tag = 0;
  for (bool isFirst = true; tag != crypto_secretstream_xchacha20poly1305_TAG_FINAL; isFirst = false) {
    const std::size_t count = FillFrom(armor, CharsOf(sealed));
    unsigned long long length = 0;
    const bool isRight =
        count >= crypto_secretstream_xchacha20poly1305_ABYTES &&
        crypto_secretstream_xchacha20poly1305_pull(&state, BytesOf(text.data()), &length, &tag, sealed.data(), count,
                                                   packed.data(), isFirst ? packed.size() : 0) == 0;
    if (!isRight && isFirst) {
      throw ExplainedError("wrong password, or the sealed text was changed", u"口令不对，或密文被改动过。");
    }
    if (!isRight) {
      ThrowChanged();
    }
    sink.Write(std::string_view(text).substr(0, static_cast<std::size_t>(length)));
  }
  unsigned char behind = 0;
  if (FillFrom(armor, CharsOf({&behind, 1})) != 0 || !armor.HasEnded()) {
    ThrowChanged();
  }
  sodium_memzero(text.data(), text.size());
}

bool LooksSealed(std::u16string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return std::ranges::equal(text.substr(0, kArmorBegin.size()), kArmorBegin,
                            [](char16_t a, char b) { return a == static_cast<unsigned char>(b); });
}

std::u16string SealText(std::u16string_view text, std::u16string_view password) {
  // The mark tells it from a file in another encoding for good.
  const std::string bytes = EncodeDocument(text, {.encoding = DocumentEncoding::kUtf8WithMark});
  MemorySource source(bytes);
  StringSink sink;
  NoProgress progress;
  Seal(password, source, sink, progress);
  std::u16string sealed = Decode(Encoding::kUtf8, sink.bytes());
  sealed.erase(sealed.find_last_not_of(kBlanks) + 1);
  return sealed;
}

std::u16string UnsealText(std::u16string_view sealed, std::u16string_view password) {
  const std::string bytes = Encode(Encoding::kUtf8, sealed);
  MemorySource source(bytes);
  StringSink sink;
  NoProgress progress;
  Unseal(password, source, sink, progress);
  return DecodeDocument(sink.bytes()).text;
}

}  // namespace scrivanta
