#include "text/Fingerprint.h"

#include "text/Spool.h"

namespace scrivanta {

namespace {

constexpr std::size_t kPartSize = sizeof(std::uint64_t);
constexpr unsigned kBitsPerByte = 8;

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t part) noexcept {
  constexpr std::uint64_t kFactor = 0xFF51AFD7ED558CCDU;
  constexpr unsigned kHalf = 32;
  hash = (hash ^ part) * kFactor;
  return hash ^ (hash >> kHalf);
}

std::uint64_t ByteAt(std::string_view bytes, std::size_t at) noexcept {
  return std::uint64_t{static_cast<unsigned char>(bytes[at])} << (kBitsPerByte * at);
}

// Whatever order the machine has its bytes in.
std::uint64_t PartOf(std::string_view bytes) noexcept {
  return ByteAt(bytes, 0) | ByteAt(bytes, 1) | ByteAt(bytes, 2) | ByteAt(bytes, 3) | ByteAt(bytes, 4) |
         ByteAt(bytes, 5) | ByteAt(bytes, 6) | ByteAt(bytes, 7);
}

}  // namespace

void FingerprintSink::TakeByte(char byte) noexcept {
  const std::size_t filled = size_ % kPartSize;
  part_ |= std::uint64_t{static_cast<unsigned char>(byte)} << (kBitsPerByte * filled);
  ++size_;
  if (size_ % kPartSize == 0) {
    hash_ = Mixed(hash_, part_);
    part_ = 0;
  }
}

void FingerprintSink::Write(std::string_view bytes) {
  for (; !bytes.empty() && size_ % kPartSize != 0; bytes.remove_prefix(1)) {
    TakeByte(bytes.front());
  }
  for (; bytes.size() >= kPartSize; bytes.remove_prefix(kPartSize)) {
    hash_ = Mixed(hash_, PartOf(bytes));
    size_ += kPartSize;
  }
  for (const char byte : bytes) {
    TakeByte(byte);
  }
}

Fingerprint FingerprintSink::fingerprint() const noexcept {
  return {size_, Mixed(Mixed(hash_, part_), size_)};
}

Fingerprint FingerprintOf(std::string_view bytes) {
  FingerprintSink sink;
  sink.Write(bytes);
  return sink.fingerprint();
}

Fingerprint FingerprintOfFile(const std::filesystem::path& path) {
  FileSource source(path);
  FingerprintSink sink;
  CopyBytes(source, sink);
  return sink.fingerprint();
}

}  // namespace scrivanta
