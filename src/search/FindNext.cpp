#include "search/FindNext.h"

#include <algorithm>

#include "search/EditSelection.h"
#include "search/FindPlaces.h"
#include "search/SearchedText.h"
#include "text/DecimalText.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

namespace {

// Positions in here count characters from 1, as the rules of the search do; 0 stands for none.
// After a replacement (beginsAtCaret) the search does not go by these rules but begins behind the new text.
class PlainSearch {
 public:
  PlainSearch(std::u16string_view text, std::u16string_view find, FindState& state, Progress& progress)
      : text_(text), finder_(find, !state.matchesCase), state_(state), progress_(progress) {}

  FindNextResult Run(TextRange selection) {
    std::size_t position = Next(selection);
    std::size_t caret = selection.start.value;
    if (position == 0 && Occurs()) {
      caret = state_.searchesUp ? text_.size() : 0;
      state_.lastFound = caret;
      position = Next({{caret}, 0});
    }
    if (position > 0) {
      state_.lastFound = position - 1;
    }
    state_.isNewSearch = false;
    state_.beginsAtCaret = false;
    return {position, position > 0 || Occurs(), caret};
  }

 private:
  std::size_t Next(TextRange selection) {
    const std::size_t selectionStart = selection.start.value;
    if (state_.beginsAtCaret) {
      return Position(finder_.Find(text_, selectionStart, progress_));
    }
    const std::size_t step = state_.lastFound == selectionStart && !state_.isNewSearch ? 1 : 0;
    if (selectionStart == text_.size()) {
      state_.lastFound = 0;
    }
    std::size_t start = state_.searchesUp ? text_.size() + 1 : 0;
    if (state_.lastFound != 0) {
      start = selectionStart + step;
    }
    return state_.searchesUp ? Upwards(start) : Downwards(start, !selection.empty());
  }

  std::size_t Upwards(std::size_t start) const {
    return start < 2 ? 0 : Position(finder_.FindBackward(text_, start - 1, progress_));
  }

  std::size_t Downwards(std::size_t start, bool hasSelection) const {
    if (start == 0 && hasSelection) {
      start = 1;
    }
    return Position(finder_.Find(text_, start + SkipAt(start) - 1, progress_));
  }

  // The character at start is counted from 0.
  std::size_t SkipAt(std::size_t start) const {
    if (start == 0 || start >= text_.size()) {
      return 1;
    }
    const char16_t c = text_[start];
    return c == u'\r' ? 3 : c == u'\n' ? 2 : 1;
  }

  bool Occurs() const { return finder_.Find(text_, 0, progress_) != LiteralFinder::kNotFound; }
  static std::size_t Position(std::size_t offset) { return offset == LiteralFinder::kNotFound ? 0 : offset + 1; }

  std::u16string_view text_;
  LiteralFinder finder_;
  FindState& state_;
  Progress& progress_;
};

// Where the caret stands that is put to this place.
std::size_t CaretPlace(std::u16string_view text, std::size_t place) {
  const bool isInLineBreak = place > 0 && place < text.size() && text[place - 1] == u'\r' && text[place] == u'\n';
  return isInLineBreak ? place - 1 : place;
}

}  // namespace

FindNextResult FindNextInText(std::u16string_view text, TextRange selection, std::u16string_view find, FindState& state,
                              Progress& progress) {
  if (find.empty()) {
    return {};
  }
  return PlainSearch(text, find, state, progress).Run(selection);
}

std::optional<TextRange> FindNextMatch(std::u16string_view text, std::size_t caret, RegExp& regExp,
                                       const FindState& state, Progress& progress) {
  std::optional<TextRange> first;
  std::optional<TextRange> last;
  std::optional<TextRange> next;
  regExp.Scan(
      text, 0,
      [&](const RegExpMatch& match) {
        const std::size_t place = CaretPlace(text, match.start);
        const TextRange range{{place}, match.value.empty() ? 0 : match.end() - place};
        first = first ? first : range;
        last = range;
        if (state.searchesUp && place < caret) {
          next = range;
        } else if (!state.searchesUp && (place > caret || (state.beginsAtCaret && place == caret))) {
          next = range;
          return false;
        }
        return true;
      },
      progress);
  return next ? next : state.searchesUp ? last : first;
}

namespace {

// Beyond that counting takes longer than anybody wants to wait for a key.
constexpr std::size_t kMostCounted = 32'000'000;  // characters
constexpr std::size_t kMostCountedByPattern = 2'000'000;

// A search with its positions counted from the beginning of what is searched.
struct InnerSearch {
  SearchedText searched;
  TextRange selection;
  FindState state;
};

// A selection that is no place in the part counts as the end that the search comes from.
InnerSearch BeginSearch(const Editor& editor, const FindState& state) {
  InnerSearch inner{TextToSearch(editor, state), editor.Selection(), state};
  const std::size_t begin = inner.searched.begin;
  const std::size_t length = inner.searched.text.size();
  TextRange& selection = inner.selection;
  const bool isPart = PartToSearch(editor, state).has_value();
  if (isPart &&
      (selection.start.value < begin || selection.end().value > begin + length || selection.length == length)) {
    selection = {{state.searchesUp ? length : 0}, 0};
    inner.state.lastFound = 0;
    inner.state.isNewSearch = true;
    inner.state.beginsAtCaret = !state.searchesUp;
    return inner;
  }
  selection.start.value -= begin;
  inner.state.lastFound -= std::min(begin, state.lastFound);
  return inner;
}

// Says which of how many places has been selected, and that the search has gone around the end. `found` is the search
// after it has found, `begun` as it was before.
void TellPlace(Workbench& workbench, const InnerSearch& found, const FindState& begun) {
  const FindState& state = found.state;
  const std::u16string& text = found.searched.text;
  std::u16string remark;
  if (text.size() <= (state.isRegExp ? kMostCountedByPattern : kMostCounted)) {
    const auto work = workbench.StartWork();
    const auto places = FindPlaces(text, state, workbench.regExpEngine(), work->progress());
    const auto behind =
        std::ranges::upper_bound(places, state.lastFound, {}, [](const TextRange& range) { return range.start.value; });
    remark = u"第 " + DecimalText(behind - places.begin()) + u" 处，共 " + DecimalText(places.size()) + u" 处";
  }
  const std::size_t caret = found.selection.start.value;
  const bool isSamePlace = !begun.isNewSearch && !begun.beginsAtCaret && !found.selection.empty();
  const bool hasWrapped = state.lastFound == caret ? isSamePlace
                          : state.searchesUp       ? state.lastFound > caret
                                                   : state.lastFound < caret;
  if (hasWrapped) {
    const std::u16string_view part = state.isInPart ? u"所选范围" : u"文";
    remark.append(u"（已到").append(part).append(state.searchesUp ? u"首，从" : u"末，从").append(part);
    remark += state.searchesUp ? u"末接着找）" : u"首接着找）";
  }
  workbench.ShowStatus(remark);
}

bool FindPlainIn(Workbench& workbench, std::u16string_view find, InnerSearch& inner) {
  FindNextResult result;
  {
    const auto work = workbench.StartWork();
    result = FindNextInText(inner.searched.text, inner.selection, find, inner.state, work->progress());
  }
  const auto select = [&](std::size_t position, std::size_t length) {
    EditSetSelection(workbench.editor(), static_cast<std::ptrdiff_t>(inner.searched.begin + position),
                     static_cast<std::ptrdiff_t>(length));
  };
  if (result.position > 0) {
    select(result.position - 1, find.size());
  } else if (result.occurs) {
    select(result.caret, 0);
  } else {
    SayNotFound(workbench.prompts());
  }
  return result.position > 0;
}

bool FindMatchIn(Workbench& workbench, InnerSearch& inner) {
  FindState& state = inner.state;
  std::optional<TextRange> match;
  {
    const auto work = workbench.StartWork();
    const auto regExp =
        workbench.regExpEngine().Compile(state.findText, {.ignoreCase = !state.matchesCase, .multiLine = true});
    match = FindNextMatch(inner.searched.text, inner.selection.start.value, *regExp, state, work->progress());
  }
  state.isNewSearch = false;
  state.beginsAtCaret = false;
  if (!match) {
    SayNotFound(workbench.prompts());
    return false;
  }
  const TextRange place = inner.searched.InDocument(*match);
  EditSetSelection(workbench.editor(), static_cast<std::ptrdiff_t>(place.start.value),
                   static_cast<std::ptrdiff_t>(place.length));
  state.lastFound = match->start.value;
  return true;
}

void EndSearch(const InnerSearch& inner, FindState& state) {
  state.lastFound = inner.searched.begin + inner.state.lastFound;
  state.isNewSearch = inner.state.isNewSearch;
  state.beginsAtCaret = inner.state.beginsAtCaret;
}

}  // namespace

std::size_t FindNextInEditor(Workbench& workbench, std::u16string_view find, FindState& state) {
  if (find.empty()) {
    return 0;
  }
  InnerSearch inner = BeginSearch(workbench.editor(), state);
  const bool isFound = FindPlainIn(workbench, find, inner);
  EndSearch(inner, state);
  return isFound ? state.lastFound + 1 : 0;
}

bool FindNext(Workbench& workbench, FindState& state) {
  if (state.findText.empty()) {
    return false;
  }
  InnerSearch inner = BeginSearch(workbench.editor(), state);
  const FindState begun = inner.state;
  const bool isFound = state.isRegExp ? FindMatchIn(workbench, inner) : FindPlainIn(workbench, state.findText, inner);
  EndSearch(inner, state);
  if (isFound) {
    TellPlace(workbench, inner, begun);
  }
  return isFound;
}

bool FindPrevious(Workbench& workbench, FindState& state) {
  FindState opposite = state;
  opposite.searchesUp = !state.searchesUp;
  const bool found = FindNext(workbench, opposite);
  state.lastFound = opposite.lastFound;
  state.isNewSearch = opposite.isNewSearch;
  state.beginsAtCaret = opposite.beginsAtCaret;
  return found;
}

std::u16string FoundRemark(std::size_t places) {
  return u"共找到 " + DecimalText(places) + u" 处";
}

void SayNotFound(Prompts& prompts) {
  prompts.Ask({.text = u"未找到结果", .icon = Icon::kInformation, .systemModal = true});
}

}  // namespace scrivanta
