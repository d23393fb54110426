// Finding the next place of a text or of a pattern, from the caret on and around the end.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "regexp/RegExp.h"
#include "search/FindState.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

struct FindNextResult {
  std::size_t position = 0;  // of the match, in characters from 1; 0 when there is none
  bool occurs = false;       // the text occurs somewhere
  std::size_t caret = 0;     // where the caret has been put to go on around the end, in characters from 0
};

// The next occurrence of a plain text. Takes up and leaves the last place and the new-search flag in the state.
FindNextResult FindNextInText(std::u16string_view text, TextRange selection, std::u16string_view find, FindState& state,
                              Progress& progress);

// Selects the next occurrence; says so when there is none and leaves the selection. Returns its position in characters
// from 1, or 0.
std::size_t FindNextInEditor(Workbench& workbench, std::u16string_view find, FindState& state);

// By the direction of the state, the first match that begins after the caret, or the last one that begins before it;
// around the end when there is none in that direction. A place between the two characters of a line break counts as the
// place before it, since the caret cannot stand there.
std::optional<TextRange> FindNextMatch(std::u16string_view text, std::size_t caret, RegExp& regExp,
                                       const FindState& state, Progress& progress);

// Finds the next place by the state, plain or by pattern, selects it or says that there is none. Returns whether there
// is one. Nothing happens without a text to find.
bool FindNext(Workbench& workbench, FindState& state);
// The same in the other direction than the state says.
bool FindPrevious(Workbench& workbench, FindState& state);

// What is said of places that are shown all at once.
std::u16string FoundRemark(std::size_t places);
// "未找到结果".
void SayNotFound(Prompts& prompts);

}  // namespace scrivanta
