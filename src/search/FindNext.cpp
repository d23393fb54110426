#include "search/FindNext.h"

#include <algorithm>

#include "search/EditSelection.h"
#include "search/FindPlaces.h"
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

std::size_t FindNextInEditor(Workbench& workbench, std::u16string_view find, FindState& state) {
  if (find.empty()) {
    return 0;
  }
  Editor& editor = workbench.editor();
  const auto work = workbench.StartWork();
  const FindNextResult result = FindNextInText(editor.Text(), editor.Selection(), find, state, work->progress());
  if (result.position > 0) {
    EditSetSelection(editor, static_cast<std::ptrdiff_t>(result.position - 1),
                     static_cast<std::ptrdiff_t>(find.size()));
  } else if (result.occurs) {
    EditSetSelection(editor, static_cast<std::ptrdiff_t>(result.caret), 0);
  } else {
    SayNotFound(workbench.prompts());
  }
  return result.position;
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

// What a search began with.
struct SearchBegin {
  TextRange selection;
  bool isNewSearch = false;
  bool beginsAtCaret = false;
};

bool HasWrapped(const SearchBegin& begin, std::size_t place, bool searchesUp) {
  const std::size_t caret = begin.selection.start.value;
  if (place == caret) {
    return !begin.isNewSearch && !begin.beginsAtCaret && !begin.selection.empty();
  }
  return searchesUp ? place > caret : place < caret;
}

// Says which of how many places has been selected, and that the search has gone around the end.
void TellPlace(Workbench& workbench, const FindState& state, const SearchBegin& begin) {
  const std::u16string text = workbench.editor().Text();
  std::u16string remark;
  if (text.size() <= (state.isRegExp ? kMostCountedByPattern : kMostCounted)) {
    const auto work = workbench.StartWork();
    const auto places = FindPlaces(text, state, workbench.regExpEngine(), work->progress());
    const auto behind =
        std::ranges::upper_bound(places, state.lastFound, {}, [](const TextRange& range) { return range.start.value; });
    remark = u"第 " + DecimalText(behind - places.begin()) + u" 处，共 " + DecimalText(places.size()) + u" 处";
  }
  if (HasWrapped(begin, state.lastFound, state.searchesUp)) {
    remark += state.searchesUp ? u"（已到文首，从文末接着找）" : u"（已到文末，从文首接着找）";
  }
  workbench.ShowStatus(remark);
}

bool FindNextMatchInEditor(Workbench& workbench, FindState& state) {
  Editor& editor = workbench.editor();
  std::optional<TextRange> match;
  {
    const auto work = workbench.StartWork();
    const auto regExp =
        workbench.regExpEngine().Compile(state.findText, {.ignoreCase = !state.matchesCase, .multiLine = true});
    match = FindNextMatch(editor.Text(), editor.Selection().start.value, *regExp, state, work->progress());
  }
  state.isNewSearch = false;
  state.beginsAtCaret = false;
  if (!match) {
    SayNotFound(workbench.prompts());
    return false;
  }
  EditSetSelection(editor, static_cast<std::ptrdiff_t>(match->start.value), static_cast<std::ptrdiff_t>(match->length));
  state.lastFound = match->start.value;
  return true;
}

}  // namespace

bool FindNext(Workbench& workbench, FindState& state) {
  if (state.findText.empty()) {
    return false;
  }
  const SearchBegin begin{workbench.editor().Selection(), state.isNewSearch, state.beginsAtCaret};
  const bool isFound =
      state.isRegExp ? FindNextMatchInEditor(workbench, state) : FindNextInEditor(workbench, state.findText, state) > 0;
  if (isFound) {
    TellPlace(workbench, state, begin);
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
