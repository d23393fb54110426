#include "batch/TextInput.h"

#include <span>

#include "regexp/RegExpErrors.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlockSize = 256 * 1024;  // bytes

}  // namespace

TextInput::TextInput(BatchContext& context) : context_(context), total_(context.input.Size().value_or(0)) {}

void TextInput::Visit(bool inPieces, const Taker& take) {
  if (!inPieces) {
    Take(ReadAll(), true, take);
    return;
  }
  inPieces_ = true;
  std::u16string text;
  while (ReadBlock()) {
    if (!text.empty()) {
      Take(text, false, take);
      text.clear();
    }
    DecodeInto(text, wholeLines_);
  }
  DecodeInto(text, bytes_.size());
  Take(text, true, take);
}

std::u16string TextInput::ReadAll() {
  std::u16string text;
  text.reserve(static_cast<std::size_t>(total_));
  while (ReadBlock()) {
    DecodeInto(text, wholeLines_);
  }
  DecodeInto(text, bytes_.size());
  return text;
}

void TextInput::Report(std::uint64_t done, std::uint64_t total) {
  context_.progress.Report(inPieces_ ? read_ : done, inPieces_ ? total_ : total);
}

// False at the end of the input.
bool TextInput::ReadBlock() {
  const std::size_t kept = bytes_.size();
  bytes_.resize(kept + kBlockSize);
  const std::size_t count = context_.input.Read(std::span(bytes_).subspan(kept));
  bytes_.resize(kept + count);
  const std::size_t lineFeed = std::string_view(bytes_).substr(kept).rfind('\n');
  wholeLines_ = lineFeed == std::string_view::npos ? 0 : kept + lineFeed + 1;
  read_ += count;
  context_.progress.Report(read_, total_);
  return count > 0;
}

void TextInput::DecodeInto(std::u16string& text, std::size_t count) {
  DecodeAppend(context_.encoding, std::string_view(bytes_).substr(0, count), text);
  bytes_.erase(0, count);
}

void TextInput::Take(std::u16string_view text, bool isLast, const Taker& take) {
  try {
    take(text, isLast);
  } catch (const RegExpTooComplex& error) {
    throw RegExpTooComplex(taken_ + error.position());
  }
  taken_ += text.size();
}

}  // namespace scrivanta
