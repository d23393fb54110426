#include "shell/history/TextMirror.h"

#include <algorithm>
#include <iterator>

namespace scrivanta {

std::u16string ToControlText(std::u16string_view text) {
  std::u16string controlText;
  controlText.reserve(text.size());
  while (!text.empty()) {
    const std::size_t stop = std::min(text.find_first_of(u"\r\n"), text.size());
    controlText.append(text.substr(0, stop));
    text.remove_prefix(stop);
    if (!text.empty()) {
      controlText += u'\r';
      text.remove_prefix(text.starts_with(u"\r\n") ? 2 : 1);
    }
  }
  return controlText;
}

namespace {

void AppendDocumentText(std::u16string_view controlText, std::u16string& text) {
  while (!controlText.empty()) {
    const std::size_t stop = std::min(controlText.find(u'\r'), controlText.size());
    text.append(controlText.substr(0, stop));
    controlText.remove_prefix(stop);
    if (!controlText.empty()) {
      text.append(u"\r\n");
      controlText.remove_prefix(1);
    }
  }
}

}  // namespace

std::u16string ToDocumentText(std::u16string_view controlText) {
  std::u16string text;
  text.reserve(controlText.size() + static_cast<std::size_t>(std::ranges::count(controlText, u'\r')));
  AppendDocumentText(controlText, text);
  return text;
}

TextMirror::TextMirror(std::u16string_view text) : buffer_(ToControlText(text)), gapStart_(buffer_.size()) {
  breaks_.Replace({}, buffer_);
}

void TextMirror::Replace(ControlRange removed, std::u16string_view insertedControlText) {
  const ControlRange range = Clamped(removed);
  MoveGap(range.start.value);
  gapLength_ += range.length;
  if (gapLength_ < insertedControlText.size()) {
    EnlargeGap(insertedControlText.size());
  }
  std::ranges::copy(insertedControlText, std::next(buffer_.begin(), static_cast<std::ptrdiff_t>(gapStart_)));
  gapStart_ += insertedControlText.size();
  gapLength_ -= insertedControlText.size();
  breaks_.Replace(range, insertedControlText);
}

ControlRange TextMirror::Clamped(ControlRange range) const {
  const std::size_t start = std::min(range.start.value, length());
  return {{start}, std::min(range.length, length() - start)};
}

void TextMirror::MoveGap(std::size_t position) {
  const auto at = [this](std::size_t index) { return std::next(buffer_.begin(), static_cast<std::ptrdiff_t>(index)); };
  if (position < gapStart_) {
    std::move_backward(at(position), at(gapStart_), at(gapStart_ + gapLength_));
  } else {
    std::move(at(gapStart_ + gapLength_), at(position + gapLength_), at(gapStart_));
  }
  gapStart_ = position;
}

// In proportion to the text, so that a text built piece by piece is copied only a few times.
void TextMirror::EnlargeGap(std::size_t needed) {
  const std::size_t extra = needed - gapLength_ + length() / 16 + 64;
  buffer_.insert(gapStart_ + gapLength_, extra, u'\0');
  gapLength_ += extra;
}

std::u16string TextMirror::Text() const {
  std::u16string text;
  text.reserve(breaks_.textLength());
  AppendDocumentText(front(), text);
  AppendDocumentText(back(), text);
  return text;
}

std::u16string TextMirror::ControlText(ControlRange range) const {
  const ControlRange known = Clamped(range);
  const std::size_t end = known.end().value;
  std::u16string text;
  text.reserve(known.length);
  if (known.start.value < gapStart_) {
    text.append(front().substr(known.start.value, known.length));
  }
  if (end > gapStart_) {
    const std::size_t start = std::max(known.start.value, gapStart_) - gapStart_;
    text.append(back().substr(start, end - gapStart_ - start));
  }
  return text;
}

bool TextMirror::Matches(ControlPos position, std::u16string_view controlText) const {
  return ControlText({position, controlText.size()}) == controlText;
}

std::size_t TextMirror::CommonPrefix(std::u16string_view controlText) const {
  const auto alike = [](std::u16string_view a, std::u16string_view b) {
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
  };
  const std::size_t inFront = alike(front(), controlText);
  return inFront < gapStart_ ? inFront : inFront + alike(back(), controlText.substr(inFront));
}

std::size_t TextMirror::CommonSuffix(std::u16string_view controlText) const {
  const auto alike = [](std::u16string_view a, std::u16string_view b) {
    return static_cast<std::size_t>(std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
  };
  const std::size_t inBack = alike(back(), controlText);
  if (inBack < back().size()) {
    return inBack;
  }
  return inBack + alike(front(), controlText.substr(0, controlText.size() - inBack));
}

}  // namespace scrivanta
