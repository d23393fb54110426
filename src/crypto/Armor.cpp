#include "crypto/Armor.h"

#include <sodium.h>

#include "crypto/Base64.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBytesOfLine = 57;  // 76 characters
constexpr std::string_view kBlanks = " \t\r";

}  // namespace

ArmorSink::ArmorSink(ByteSink& text) : lines_(text) {
  lines_.WriteLine(kArmorBegin);
}

void ArmorSink::Write(std::string_view bytes) {
  pending_.append(bytes);
  std::size_t written = 0;
  for (; pending_.size() - written >= kBytesOfLine; written += kBytesOfLine) {
    lines_.WriteLine(EncodeBase64(std::string_view(pending_).substr(written, kBytesOfLine)));
  }
  pending_.erase(0, written);
}

void ArmorSink::Close() {
  if (!pending_.empty()) {
    lines_.WriteLine(EncodeBase64(pending_));
  }
  lines_.WriteLine(kArmorEnd);
  lines_.Flush();
}

ArmorSource::ArmorSource(ByteSource& text, Progress& progress) : lines_(text, LineEnds::kCrLfOrLf, progress) {}

bool ArmorSource::Begins() {
  return NextLine() && line_ == kArmorBegin;
}

std::size_t ArmorSource::Read(std::span<char> buffer) {
  while (taken_ == bytes_.size() && !hasEnded_ && !isDamaged_ && NextLine()) {
    if (line_ == kArmorEnd) {
      hasEnded_ = true;
      break;
    }
    characters_.append(line_);
    DecodeWholeGroups();
  }
  const std::size_t count = bytes_.copy(buffer.data(), buffer.size(), taken_);
  taken_ += count;
  return count;
}

// Strictly, and NULs too: DecodeBase64 is for text.
void ArmorSource::DecodeWholeGroups() {
  const std::size_t whole = characters_.size() / 4 * 4;
  bytes_.resize(whole / 4 * 3);
  std::size_t count = 0;
  if (sodium_base642bin(reinterpret_cast<unsigned char*>(bytes_.data()), bytes_.size(), characters_.data(), whole,
                        nullptr, &count, nullptr, sodium_base64_VARIANT_ORIGINAL) != 0) {
    isDamaged_ = true;
    count = 0;
  }
  bytes_.resize(count);
  taken_ = 0;
  characters_.erase(0, whole);
}

bool ArmorSource::HasEnded() {
  return hasEnded_ && !isDamaged_ && characters_.empty() && !NextLine();
}

bool ArmorSource::NextLine() {
  do {
    if (!lines_.Next()) {
      return false;
    }
    line_ = Trim(lines_.line(), kBlanks);
  } while (line_.empty());
  return true;
}

}  // namespace scrivanta
