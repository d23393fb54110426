// What the find dialog and the find commands of the menu share for the life of the program.
#pragma once

#include <cstddef>
#include <string>

namespace scrivanta {

struct FindState {
  std::u16string findText = {};
  std::u16string replacement = {};
  bool matchesCase = false;
  bool searchesUp = false;
  bool isRegExp = false;
  bool isInPart = false;       // only the marked part of the editor is searched, as long as there is one
  std::size_t lastFound = 0;   // where the last match begins, in characters from 0; 0 also when there is none
  bool isNewSearch = false;    // the text or an option has changed since the last search
  bool beginsAtCaret = false;  // a match right at the caret counts: what stood before it has just been replaced
};

}  // namespace scrivanta
