#include "crypto/RijndaelStream.h"

#include <algorithm>
#include <vector>

#include "crypto/Octets.h"

namespace scrivanta {

namespace {

constexpr std::size_t kChunkSize = 4'000'000;  // bytes, whole blocks
static_assert(kChunkSize % kRijndaelBlockSize == 0);

// Fills the buffer as far as the source goes.
std::size_t Fill(ByteSource& source, std::span<char> buffer) {
  std::size_t filled = 0;
  while (filled < buffer.size()) {
    const std::size_t count = source.Read(buffer.subspan(filled));
    if (count == 0) {
      break;
    }
    filled += count;
  }
  return filled;
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

void EncipherStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                    Progress& progress) {
  std::vector<char> chunk(kChunkSize);
  const auto encipherAndWrite = [&](std::size_t size) {
    const std::span<char> bytes = std::span(chunk).first(size);
    form.encipher(key, AsOctets(bytes), AsOctets(bytes));
    Write(sink, bytes);
  };
  std::uint64_t done = 0;
  for (;;) {
    const std::size_t count = Fill(source, chunk);
    done += count;
    progress.Report(done, source.Size().value_or(0));
    if (count < kChunkSize) {
      const std::size_t lengthField = count % kRijndaelBlockSize;
      const std::size_t padded = count - lengthField + kRijndaelBlockSize;
      std::fill(chunk.begin() + static_cast<std::ptrdiff_t>(count), chunk.begin() + static_cast<std::ptrdiff_t>(padded),
                '\0');
      chunk[padded - 1] = static_cast<char>(lengthField);
      encipherAndWrite(padded);
      return;
    }
    encipherAndWrite(kChunkSize);
  }
}

DecipherOutcome DecipherStream(const RijndaelKey& key, const RijndaelForm& form, ByteSource& source, ByteSink& sink,
                               Progress& progress) {
  if (source.Size() && !IsCiphertextSize(*source.Size())) {
    return DecipherOutcome::kWrongSize;
  }
  // One chunk is read ahead: only the last one has a length field.
  std::vector<char> chunk(kChunkSize);
  std::vector<char> nextChunk(kChunkSize);
  std::size_t size = Fill(source, chunk);
  std::uint64_t done = 0;
  for (;;) {
    if (!IsCiphertextSize(size)) {
      return DecipherOutcome::kWrongSize;
    }
    const std::size_t nextSize = Fill(source, nextChunk);
    const std::span<char> bytes = std::span(chunk).first(size);
    form.decipher(key, AsOctets(bytes), AsOctets(bytes));
    done += size;
    progress.Report(done, source.Size().value_or(0));
    if (nextSize == 0) {
      const auto lengthField = static_cast<std::uint8_t>(bytes.back());
      const bool correct = lengthField < kRijndaelBlockSize;
      Write(sink, correct ? bytes.first(size - kRijndaelBlockSize + lengthField) : bytes);
      return correct ? DecipherOutcome::kDone : DecipherOutcome::kWrongLengthField;
    }
    Write(sink, bytes);
    chunk.swap(nextChunk);
    size = nextSize;
  }
}

}  // namespace scrivanta
