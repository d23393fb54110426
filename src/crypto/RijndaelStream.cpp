#include "crypto/RijndaelStream.h"

#include <algorithm>
#include <utility>

#include "crypto/Chunk.h"
#include "crypto/Octets.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostInChunk = 4'000'000;  // bytes, whole blocks
static_assert(kMostInChunk % kRijndaelBlockSize == 0);

Chunk MakeChunk(const ByteSource& source) {
  return Chunk(ChunkSizeFor(source, kRijndaelBlockSize, kMostInChunk));
}

void Write(ByteSink& sink, std::span<const char> bytes) {
  if (!bytes.empty()) {
    sink.Write({bytes.data(), bytes.size()});
  }
}

}  // namespace

bool IsCiphertextSize(std::uint64_t size) noexcept {
  return size != 0 && size % kRijndaelBlockSize == 0;
}

void EncryptStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                   Progress& progress) {
  const Chunk memory = MakeChunk(source);
  const std::span<char> chunk = memory.bytes();
  const auto encryptAndWrite = [&](std::size_t size) {
    const std::span<char> bytes = chunk.first(size);
    form.encrypt(key, AsOctets(bytes), AsOctets(bytes));
    Write(sink, bytes);
  };
  std::uint64_t done = 0;
  for (;;) {
    const std::size_t count = FillFrom(source, chunk);
    done += count;
    progress.Report(done, source.Size().value_or(0));
    if (count < chunk.size()) {
      const std::size_t lengthField = count % kRijndaelBlockSize;
      const std::size_t padded = count - lengthField + kRijndaelBlockSize;
      std::ranges::fill(chunk.subspan(count, padded - count), '\0');
      chunk[padded - 1] = static_cast<char>(lengthField);
      encryptAndWrite(padded);
      return;
    }
    encryptAndWrite(count);
  }
}

DecryptOutcome DecryptStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                             Progress& progress) {
  if (source.Size() && !IsCiphertextSize(*source.Size())) {
    return DecryptOutcome::kWrongSize;
  }
  // One chunk is read ahead: only the last one has a length field.
  const Chunk memory = MakeChunk(source);
  const Chunk nextMemory = MakeChunk(source);
  std::span<char> chunk = memory.bytes();
  std::span<char> nextChunk = nextMemory.bytes();
  std::size_t size = FillFrom(source, chunk);
  std::uint64_t done = 0;
  for (;;) {
    if (!IsCiphertextSize(size)) {
      return DecryptOutcome::kWrongSize;
    }
    const std::size_t nextSize = FillFrom(source, nextChunk);
    const std::span<char> bytes = chunk.first(size);
    form.decrypt(key, AsOctets(bytes), AsOctets(bytes));
    done += size;
    progress.Report(done, source.Size().value_or(0));
    if (nextSize == 0) {
      const auto lengthField = static_cast<std::uint8_t>(bytes.back());
      const bool correct = lengthField < kRijndaelBlockSize;
      Write(sink, correct ? bytes.first(size - kRijndaelBlockSize + lengthField) : bytes);
      return correct ? DecryptOutcome::kDone : DecryptOutcome::kWrongLengthField;
    }
    Write(sink, bytes);
    std::swap(chunk, nextChunk);
    size = nextSize;
  }
}

}  // namespace scrivanta
