// The program's own copy of the text in the edit control, with cheap edits where the last one was. It answers what
// would be dear to ask of the control: the whole text, what stood in a removed range, positions. It keeps the text as
// the control does, with one CR a line break; the document text has CR LF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "shell/history/ControlPos.h"
#include "shell/history/LineBreakIndex.h"

namespace scrivanta {

// Each CR LF, lone CR and lone LF becomes one CR.
std::u16string ToControlText(std::u16string_view text);
// Each CR becomes CR LF.
std::u16string ToDocumentText(std::u16string_view controlText);

class TextMirror {
 public:
  TextMirror() = default;
  explicit TextMirror(std::u16string_view text);

  // Positions beyond the end mean the end, here and below.
  void Replace(ControlRange removed, std::u16string_view insertedControlText);

  // The document text.
  std::u16string Text() const;
  std::u16string Text(TextRange range) const { return ToDocumentText(ControlText(breaks_.ToControl(range))); }
  std::u16string ControlText(ControlRange range) const;
  // Whether the control text at the position begins with these units.
  bool Matches(ControlPos position, std::u16string_view controlText) const;
  // The units that the beginnings of both have in common; and their ends.
  std::size_t CommonPrefix(std::u16string_view controlText) const;
  std::size_t CommonSuffix(std::u16string_view controlText) const;

  const LineBreakIndex& breaks() const noexcept { return breaks_; }
  std::size_t length() const noexcept { return breaks_.controlLength(); }

 private:
  std::u16string_view front() const noexcept { return std::u16string_view(buffer_).substr(0, gapStart_); }
  std::u16string_view back() const noexcept { return std::u16string_view(buffer_).substr(gapStart_ + gapLength_); }
  ControlRange Clamped(ControlRange range) const;
  void MoveGap(std::size_t position);
  void EnlargeGap(std::size_t needed);

  std::u16string buffer_;  // the text, with a gap where the last edit was
  std::size_t gapStart_ = 0;
  std::size_t gapLength_ = 0;
  LineBreakIndex breaks_;
};

}  // namespace scrivanta
