#include "text/TextPieces.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include "text/LineText.h"
#include "text/Surrogates.h"

namespace scrivanta {

namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
constexpr std::u16string_view kBlanks = u" \t\u3000\u00A0";
// Comparing all of two lines with each other costs the product of their lengths.
constexpr std::size_t kMostCells = std::size_t{1} << 18U;
constexpr std::size_t kMostCellsInAll = std::size_t{1} << 28U;
// Among how many old lines the one is looked for that has become a new line.
constexpr std::size_t kLinesAhead = 8;

std::u16string_view WithoutBlanks(std::u16string_view line) {
  return Trim(line, kBlanks);
}

std::size_t CommonStart(std::u16string_view a, std::u16string_view b) {
  return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

std::size_t CommonEnd(std::u16string_view a, std::u16string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
}

bool AreAlike(std::u16string_view a, std::u16string_view b) {
  const std::size_t start = CommonStart(a, b);
  const std::size_t end = CommonEnd(a.substr(start), b.substr(start));
  return start + end > 0 && 2 * (start + end) >= std::min(a.size(), b.size());
}

// Where the units of the shorter text are in the longer one; nothing when they are not all there, in order.
std::optional<std::vector<std::size_t>> PlacesOfSubsequence(std::u16string_view shorter, std::u16string_view longer) {
  std::vector<std::size_t> places;
  places.reserve(shorter.size());
  std::size_t at = 0;
  for (const char16_t unit : shorter) {
    at = longer.find(unit, at);
    if (at == std::u16string_view::npos) {
      return std::nullopt;
    }
    places.push_back(at++);
  }
  return places;
}

// Puts pieces together; neighbours that belong together become one.
class PieceList {
 public:
  explicit PieceList(std::u16string_view newText) : new_(newText) {}

  void Keep(std::size_t from, std::size_t length) {
    Add({from, length, true});
    last_ = from + length;
  }
  void AddFresh(std::size_t length, std::size_t like) { Add({like, length, false}); }
  // Behind what was kept last.
  void AddFresh(std::size_t length) { AddFresh(length, last_ == 0 ? 0 : last_ - 1); }
  std::size_t last() const noexcept { return last_; }

  // Half of a surrogate pair is never kept without the other.
  TextPieces Take() {
    TextPieces whole;
    std::swap(whole, pieces_);
    std::size_t at = 0;
    for (const TextPiece& piece : whole) {
      const std::size_t end = at + piece.length;
      const bool cutsStart = piece.isKept && at > 0 && IsHighSurrogate(new_[at - 1]) && IsLowSurrogate(new_[at]);
      const bool cutsEnd = piece.isKept && piece.length > (cutsStart ? 1U : 0U) && end < new_.size() &&
                           IsHighSurrogate(new_[end - 1]) && IsLowSurrogate(new_[end]);
      const std::size_t head = cutsStart ? 1 : 0;
      const std::size_t tail = cutsEnd ? 1 : 0;
      Add({piece.from, head, false});
      Add({piece.from + (piece.isKept ? head : 0), piece.length - head - tail, piece.isKept});
      Add({piece.from + (piece.isKept ? piece.length - 1 : 0), tail, false});
      at = end;
    }
    return std::move(pieces_);
  }

 private:
  void Add(TextPiece piece) {
    if (piece.length == 0) {
      return;
    }
    if (!pieces_.empty()) {
      TextPiece& last = pieces_.back();
      const bool goesOn = piece.isKept ? last.isKept && last.from + last.length == piece.from : !last.isKept;
      if (goesOn) {
        last.length += piece.length;
        return;
      }
    }
    pieces_.push_back(piece);
  }

  std::u16string_view new_;
  TextPieces pieces_;
  std::size_t last_ = 0;
};

// The lines of a text without their ends, and where they begin; the last one may be empty.
struct Lines {
  explicit Lines(std::u16string_view text) {
    for (std::size_t begin = 0;;) {
      const std::size_t end = std::min(text.find(u'\r', begin), text.size());
      starts.push_back(begin);
      lines.push_back(text.substr(begin, end - begin));
      if (end == text.size()) {
        return;
      }
      begin = end + 1;
    }
  }

  std::size_t size() const noexcept { return lines.size(); }

  std::vector<std::u16string_view> lines;
  std::vector<std::size_t> starts;
};

class Matcher {
 public:
  Matcher(std::u16string_view oldText, std::u16string_view newText)
      : oldText_(oldText), newText_(newText), old_(oldText), new_(newText), pieces_(newText) {
    origin_.assign(new_.size(), kNone);
    isTaken_.assign(old_.size(), false);
  }

  TextPieces Run() {
    MatchInOrder();
    MatchMoved([](std::u16string_view line) { return line; });
    MatchMoved(&WithoutBlanks);
    for (std::size_t begin = 0; begin < new_.size();) {
      if (origin_[begin] != kNone) {
        KeepLine(begin++);
        continue;
      }
      std::size_t end = begin + 1;
      while (end < new_.size() && origin_[end] == kNone) {
        ++end;
      }
      MatchBlock(begin, end);
      begin = end;
    }
    return pieces_.Take();
  }

 private:
  using Index = std::unordered_map<std::u16string_view, std::vector<std::size_t>>;

  void Pair(std::size_t oldLine, std::size_t newLine) {
    origin_[newLine] = oldLine;
    isTaken_[oldLine] = true;
  }

  // Equal lines at both ends; between them goes on, where the lines differ, at the nearest one that the other side has.
  void MatchInOrder() {
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t oldEnd = old_.size();
    std::size_t newEnd = new_.size();
    while (oldEnd > 0 && newEnd > 0 && old_.lines[oldEnd - 1] == new_.lines[newEnd - 1]) {
      Pair(--oldEnd, --newEnd);
    }
    Index inOld = IndexOf(old_, 0, oldEnd);
    Index inNew = IndexOf(new_, 0, newEnd);
    const auto find = [](Index& index, std::u16string_view line, std::size_t from) {
      const auto found = index.find(line);
      if (found == index.end()) {
        return kNone;
      }
      std::vector<std::size_t>& places = found->second;  // the first comes last
      while (!places.empty() && places.back() < from) {
        places.pop_back();
      }
      return places.empty() ? kNone : places.back();
    };
    while (i < oldEnd && j < newEnd) {
      if (old_.lines[i] == new_.lines[j]) {
        Pair(i++, j++);
        continue;
      }
      const std::size_t ahead = find(inNew, old_.lines[i], j);
      const std::size_t behind = find(inOld, new_.lines[j], i);
      if (ahead == kNone && behind == kNone) {
        ++i;
        ++j;
      } else if (behind == kNone || (ahead != kNone && ahead - j < behind - i)) {
        j = ahead;
      } else {
        i = behind;
      }
    }
  }

  static Index IndexOf(const Lines& lines, std::size_t begin, std::size_t end) {
    Index index;
    for (std::size_t line = end; line-- > begin;) {
      index[lines.lines[line]].push_back(line);
    }
    return index;
  }

  template <typename Key>
  void MatchMoved(Key key) {
    Index left;
    for (std::size_t line = old_.size(); line-- > 0;) {
      if (!isTaken_[line]) {
        left[key(old_.lines[line])].push_back(line);
      }
    }
    for (std::size_t line = 0; line < new_.size() && !left.empty(); ++line) {
      if (origin_[line] != kNone) {
        continue;
      }
      const auto found = left.find(key(new_.lines[line]));
      if (found != left.end() && !found->second.empty()) {
        Pair(found->second.back(), line);
        found->second.pop_back();
      }
    }
  }

  // The line, and its break, out of the one that it was.
  void KeepLine(std::size_t line) {
    const std::size_t from = origin_[line];
    const std::size_t start = old_.starts[from];
    MatchStretch(start, old_.lines[from], new_.lines[line]);
    const std::size_t end = start + old_.lines[from].size();
    if (line + 1 == new_.size()) {
      return;
    }
    if (from + 1 < old_.size()) {
      pieces_.Keep(end, 1);
    } else {
      pieces_.AddFresh(1, end);
    }
  }

  // New lines that none of the old ones is: between the origins of their neighbours there may be those they were.
  void MatchBlock(std::size_t begin, std::size_t end) {
    const std::size_t oldBegin = begin == 0 ? 0 : LineAt(pieces_.last());
    std::vector<std::size_t> free;
    const std::size_t oldEnd = end == new_.size() ? old_.size() : origin_[end];
    for (std::size_t line = oldBegin; line < old_.size() && line < oldEnd; ++line) {
      if (!isTaken_[line]) {
        free.push_back(line);
      } else if (!free.empty()) {
        break;
      }
    }
    if (free.size() == end - begin) {
      for (std::size_t line = begin; line < end; ++line) {
        Pair(free[line - begin], line);
      }
    } else if (!free.empty() && MatchWholeBlock(free, begin, end)) {
      return;
    } else {
      PairAlike(free, begin, end);
    }
    for (std::size_t line = begin; line < end; ++line) {
      if (origin_[line] != kNone) {
        KeepLine(line);
      } else {
        pieces_.AddFresh(new_.lines[line].size() + (line + 1 == new_.size() ? 0 : 1));
      }
    }
  }

  // When nothing but line breaks, or blanks, or other units have gone or come.
  bool MatchWholeBlock(const std::vector<std::size_t>& free, std::size_t begin, std::size_t end) {
    const auto stretch = [](const Lines& lines, std::u16string_view text, std::size_t first, std::size_t behind) {
      const std::size_t start = lines.starts[first];
      return text.substr(start, behind == lines.size() ? std::u16string_view::npos : lines.starts[behind] - start);
    };
    const std::u16string_view before = stretch(old_, oldText_, free.front(), free.back() + 1);
    const std::u16string_view after = stretch(new_, newText_, begin, end);
    const auto places =
        before.size() < after.size() ? PlacesOfSubsequence(before, after) : PlacesOfSubsequence(after, before);
    if (!places) {
      return false;
    }
    for (const std::size_t line : free) {
      isTaken_[line] = true;
    }
    KeepSubsequence(old_.starts[free.front()], before.size() < after.size(), *places, after.size());
    return true;
  }

  void PairAlike(const std::vector<std::size_t>& free, std::size_t begin, std::size_t end) {
    std::size_t next = 0;
    for (std::size_t line = begin; line < end; ++line) {
      for (std::size_t i = next; i < free.size() && i < next + kLinesAhead; ++i) {
        if (AreAlike(old_.lines[free[i]], new_.lines[line])) {
          Pair(free[i], line);
          next = i + 1;
          break;
        }
      }
    }
  }

  // With isAdded the places are those of the old units among the new ones, else of the new units among the old ones.
  void KeepSubsequence(std::size_t start, bool isAdded, const std::vector<std::size_t>& places, std::size_t length) {
    if (!isAdded) {
      for (const std::size_t place : places) {
        pieces_.Keep(start + place, 1);
      }
      return;
    }
    std::size_t at = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
      pieces_.AddFresh(places[i] - at, start + i - (i == 0 ? 0 : 1));
      pieces_.Keep(start + i, 1);
      at = places[i] + 1;
    }
    pieces_.AddFresh(length - at);
  }

  // A stretch of the old text, beginning at `start`, that has become another one.
  void MatchStretch(std::size_t start, std::u16string_view before, std::u16string_view after) {
    const std::size_t head = CommonStart(before, after);
    const std::size_t tail = CommonEnd(before.substr(head), after.substr(head));
    pieces_.Keep(start, head);
    MatchMiddle(start + head, before.substr(head, before.size() - head - tail),
                after.substr(head, after.size() - head - tail), start);
    if (tail > 0) {
      pieces_.Keep(start + before.size() - tail, tail);
    }
  }

  void MatchMiddle(std::size_t start, std::u16string_view before, std::u16string_view after, std::size_t lineStart) {
    if (before.empty() || after.empty()) {
      pieces_.AddFresh(after.size(), before.empty() && start > lineStart ? start - 1 : start);
    } else if (const auto added = PlacesOfSubsequence(before, after)) {
      KeepSubsequence(start, true, *added, after.size());
    } else if (const auto gone = PlacesOfSubsequence(after, before)) {
      KeepSubsequence(start, false, *gone, after.size());
    } else if (before.size() < kMostCells && after.size() < kMostCells && before.size() * after.size() <= kMostCells &&
               cells_ < kMostCellsInAll) {
      cells_ += before.size() * after.size();
      KeepLongestCommon(start, before, after);
    } else {
      pieces_.AddFresh(after.size(), start);
    }
  }

  // The longest common subsequence.
  void KeepLongestCommon(std::size_t start, std::u16string_view before, std::u16string_view after) {
    const std::size_t width = after.size() + 1;
    lengths_.assign((before.size() + 1) * width, 0);
    for (std::size_t i = before.size(); i-- > 0;) {
      for (std::size_t j = after.size(); j-- > 0;) {
        lengths_[i * width + j] = before[i] == after[j]
                                      ? lengths_[(i + 1) * width + j + 1] + 1
                                      : std::max(lengths_[(i + 1) * width + j], lengths_[i * width + j + 1]);
      }
    }
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t gap = 0;  // where the old stretch begins that has not been kept
    while (i < before.size() && j < after.size()) {
      if (before[i] == after[j]) {
        pieces_.Keep(start + i++, 1);
        ++j;
        gap = i;
      } else if (lengths_[(i + 1) * width + j] >= lengths_[i * width + j + 1]) {
        ++i;
      } else {
        pieces_.AddFresh(1, start + gap);
        ++j;
      }
    }
    pieces_.AddFresh(after.size() - j, start + std::min(gap, before.size() - 1));
  }

  // The line that the place behind a kept unit belongs to.
  std::size_t LineAt(std::size_t place) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(old_.starts, place) - old_.starts.begin()) - 1;
  }

  std::u16string_view oldText_;
  std::u16string_view newText_;
  Lines old_;
  Lines new_;
  std::vector<std::size_t> origin_;  // of each new line
  std::vector<bool> isTaken_;        // old lines
  PieceList pieces_;
  std::vector<std::uint32_t> lengths_;
  std::size_t cells_ = 0;
};

}  // namespace

TextPieces MatchTexts(std::u16string_view oldText, std::u16string_view newText) {
  return Matcher(oldText, newText).Run();
}

bool KeepsOrder(const TextPieces& pieces) {
  std::size_t last = 0;
  return std::ranges::all_of(pieces, [&last](const TextPiece& piece) {
    if (!piece.isKept) {
      return true;
    }
    const bool follows = piece.from >= last;
    last = piece.from + piece.length;
    return follows;
  });
}

// The longest chain of pieces in ascending order, by the smallest end of the chains of each length so far.
TextPieces InOrder(TextPieces pieces) {
  std::vector<std::size_t> ends;  // for each length the piece that ends the chain
  std::vector<std::size_t> before(pieces.size(), kNone);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!pieces[i].isKept) {
      continue;
    }
    const auto at =
        std::ranges::lower_bound(ends, pieces[i].from, {}, [&](std::size_t end) { return pieces[end].from; });
    before[i] = at == ends.begin() ? kNone : *std::prev(at);
    if (at == ends.end()) {
      ends.push_back(i);
    } else {
      *at = i;
    }
  }
  std::vector<bool> isInChain(pieces.size());
  for (std::size_t i = ends.empty() ? kNone : ends.back(); i != kNone; i = before[i]) {
    isInChain[i] = true;
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    pieces[i].isKept = pieces[i].isKept && isInChain[i];
  }
  return pieces;
}

std::size_t PlaceAfter(const TextPieces& pieces, std::u16string_view oldText, std::size_t place) {
  place = std::min(place, oldText.size());
  const std::size_t before = oldText.substr(0, place).rfind(u'\r');
  const std::size_t lineStart = before == std::u16string_view::npos ? 0 : before + 1;
  const std::size_t lineEnd = std::min(oldText.find(u'\r', place), oldText.size());
  std::size_t best = 0;
  std::size_t bestDistance = kNone;
  std::size_t at = 0;
  for (const TextPiece& piece : pieces) {
    if (piece.isKept) {
      // The nearest unit of the piece; of the line's own ones, if there is one.
      const std::size_t begin = std::max(piece.from, std::min(lineStart, piece.from + piece.length - 1));
      const std::size_t end = std::max(begin + 1, std::min(piece.from + piece.length, lineEnd));
      const bool isOfLine = begin >= lineStart && begin <= lineEnd;
      const std::size_t first = isOfLine ? begin : piece.from;
      const std::size_t behind = isOfLine ? end : piece.from + piece.length;
      const std::size_t nearest = std::clamp(place, first, behind - 1);
      const std::size_t distance = nearest > place ? nearest - place : place - nearest;
      const std::size_t rank = isOfLine ? distance : distance + oldText.size();
      // The caret stands behind the last unit that is left before it.
      const std::size_t found = at + (nearest - piece.from) + (nearest < place && isOfLine ? 1 : 0);
      if (rank < bestDistance) {
        bestDistance = rank;
        best = found;
      }
    }
    at += piece.length;
  }
  const bool keepsEnd =
      !pieces.empty() && pieces.back().isKept && pieces.back().from + pieces.back().length == oldText.size();
  return place == oldText.size() && keepsEnd ? at : best;
}

std::vector<TextChange> ChangesOf(const TextPieces& pieces, std::size_t oldLength) {
  std::vector<TextChange> changes;
  std::size_t oldAt = 0;
  std::size_t newAt = 0;
  std::size_t newDone = 0;
  const auto close = [&](std::size_t oldEnd) {
    if (oldEnd > oldAt || newAt > newDone) {
      changes.push_back({oldAt, oldEnd - oldAt, newDone, newAt - newDone});
    }
  };
  for (const TextPiece& piece : pieces) {
    if (piece.isKept) {
      close(piece.from);
      oldAt = piece.from + piece.length;
      newDone = newAt + piece.length;
    }
    newAt += piece.length;
  }
  close(oldLength);
  return changes;
}

}  // namespace scrivanta
