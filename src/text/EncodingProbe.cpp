#include "text/EncodingProbe.h"

#include <algorithm>

#include "text/Utf8.h"

namespace scrivanta {

namespace {

constexpr std::size_t kLongestMark = 3;

bool IsCutOff(std::string_view bytes) {
  constexpr char kFirstOfTwo = '\xC2';
  constexpr char kLastOfTwo = '\xDF';
  return IsCutOffInUtf8(bytes) || (bytes.size() == 1 && bytes[0] >= kFirstOfTwo && bytes[0] <= kLastOfTwo);
}

}  // namespace

void EncodingProbe::Take(std::string_view bytes) {
  head_ += bytes.substr(0, kLongestMark - std::min(head_.size(), kLongestMark));
  if (!isWellFormed_) {
    return;
  }
  std::string joined;
  if (!rest_.empty()) {
    joined = rest_ + std::string(bytes);
    bytes = joined;
  }
  const Utf8Extent extent = MeasureUtf8(bytes);
  longCharacters_ += extent.longCharacters;
  const std::string_view rest = bytes.substr(extent.bytes);
  isWellFormed_ = rest.empty() || IsCutOff(rest);
  rest_ = std::string(isWellFormed_ ? rest : std::string_view());
}

DocumentEncoding EncodingProbe::Encoding() const {
  for (const DocumentEncoding marked :
       {DocumentEncoding::kUtf8WithMark, DocumentEncoding::kUtf16Le, DocumentEncoding::kUtf16Be}) {
    if (head_.starts_with(MarkOf(marked))) {
      return marked;
    }
  }
  return IsUtf8() ? DocumentEncoding::kUtf8 : DocumentEncoding::kGbk;
}

bool EncodingProbe::IsDecided() const {
  return head_.size() >= kLongestMark && (!isWellFormed_ || !MarkOf(Encoding()).empty());
}

bool EncodingProbe::IsUtf8() const {
  // A last character that is cut off is forgiven where so much speaks for UTF-8 that it cannot be chance.
  constexpr std::size_t kBeyondChance = 8;
  if (!isWellFormed_) {
    return false;
  }
  return rest_.empty() ? longCharacters_ > 0 : longCharacters_ >= kBeyondChance && IsCutOffInUtf8(rest_);
}

std::string_view MarkOf(DocumentEncoding encoding) {
  switch (encoding) {
    case DocumentEncoding::kUtf8WithMark:
      return "\xEF\xBB\xBF";
    case DocumentEncoding::kUtf16Le:
      return "\xFF\xFE";
    case DocumentEncoding::kUtf16Be:
      return "\xFE\xFF";
    case DocumentEncoding::kGbk:
    case DocumentEncoding::kUtf8:
      break;
  }
  return {};
}

}  // namespace scrivanta
