#include "shell/history/EditTracker.h"

#include <algorithm>
#include <array>
#include <optional>

namespace scrivanta {
namespace {

constexpr std::size_t kSurroundings = 64;

bool SameAt(const TextMirror& known, std::size_t knownStart, const ControlView& control, std::size_t start,
            std::size_t length) {
  return length == 0 || known.Matches(ControlPos{knownStart}, control.Read({ControlPos{start}, length}));
}

// Some units before and behind an edit, at both ends of the text, and halfway between.
bool SurroundingsMatch(const TextMirror& known, const ControlView& control, std::size_t start,
                       std::size_t removedLength, std::size_t insertedLength) {
  const std::size_t behind = known.length() - start - removedLength;
  const std::size_t ahead = std::min(start, kSurroundings);
  const std::size_t after = std::min(behind, kSurroundings);
  struct Sample {
    std::size_t known;
    std::size_t control;
    std::size_t length;
  };
  const std::size_t knownBehind = start + removedLength;
  const std::size_t controlBehind = start + insertedLength;
  const std::array samples = {
      Sample{start - ahead, start - ahead, ahead},
      Sample{knownBehind, controlBehind, after},
      Sample{0, 0, ahead},
      Sample{knownBehind + behind - after, controlBehind + behind - after, after},
      Sample{start / 2, start / 2, std::min(start - start / 2, kSurroundings)},
      Sample{knownBehind + behind / 2, controlBehind + behind / 2, std::min(behind - behind / 2, kSurroundings)},
  };
  return std::ranges::all_of(samples, [&](const Sample& sample) {
    return SameAt(known, sample.known, control, sample.control, sample.length);
  });
}

// The edit that fits the selection before and the caret after, when there is one.
std::optional<ControlEdit> EditAtCaret(const TextMirror& known, ControlRange selectionBefore,
                                       const ControlView& control) {
  const ControlRange selection = control.Selection();
  if (!selection.empty()) {
    return std::nullopt;  // as dropped text leaves it, which may have come from elsewhere in the document
  }
  const std::size_t newLength = control.Length();
  const std::size_t start = std::min(selectionBefore.start.value, selection.start.value);
  const std::size_t insertedLength = selection.start.value - start;
  const std::size_t behind = newLength - std::min(newLength, selection.start.value);
  if (known.length() < start + behind) {
    return std::nullopt;
  }
  const std::size_t removedLength = known.length() - start - behind;
  if (!SurroundingsMatch(known, control, start, removedLength, insertedLength)) {
    return std::nullopt;
  }
  return ControlEdit{{start},
                     known.ControlText({{start}, removedLength}),
                     insertedLength == 0 ? std::u16string() : control.Read({{start}, insertedLength})};
}

}  // namespace

ControlEdit FindEdit(const TextMirror& known, ControlRange selectionBefore, const ControlView& control,
                     EqualEnds equalEnds) {
  std::optional<ControlEdit> edit = EditAtCaret(known, selectionBefore, control);
  if (!edit) {
    return FindEditByWholeText(known, control);
  }
  return equalEnds == EqualEnds::kBelong ? *std::move(edit) : Trimmed(*std::move(edit));
}

ControlEdit FindEditByWholeText(const TextMirror& known, const ControlView& control) {
  return Difference(known, control.Read({{0}, control.Length()}));
}

ControlEdit Difference(const TextMirror& known, std::u16string_view controlText) {
  const std::size_t prefix = WholePairsAtEnd(controlText.substr(0, known.CommonPrefix(controlText)));
  const std::size_t rest = std::min(known.length(), controlText.size()) - prefix;
  const std::size_t alike = std::min(known.CommonSuffix(controlText), rest);
  const std::size_t suffix = WholePairsAtStart(controlText.substr(controlText.size() - alike));
  return {{prefix},
          known.ControlText({{prefix}, known.length() - prefix - suffix}),
          std::u16string(controlText.substr(prefix, controlText.size() - prefix - suffix))};
}

bool LooksTheSame(const TextMirror& known, const ControlView& control, ControlRange place) {
  if (known.length() != control.Length()) {
    return false;
  }
  const std::size_t start = std::min(place.start.value, known.length());
  const std::size_t length = std::min(place.length, known.length() - start);
  return SameAt(known, start, control, start, length) && SurroundingsMatch(known, control, start, length, length);
}

}  // namespace scrivanta
