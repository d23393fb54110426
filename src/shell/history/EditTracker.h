// Finds out what has just been edited in the control, which tells only that it was.
#pragma once

#include "shell/history/ControlEdit.h"
#include "shell/history/TextMirror.h"

namespace scrivanta {

// The edit that leads from the known text to what the control holds now; empty when the two are the same. What is
// typed, pasted or deleted lies between the selection before the edit and the caret after it, so as a rule only the
// edit and its surroundings are read; when these do not fit the known text, the whole text is read and compared. Units
// at the ends of the edit that have been replaced by the same ones belong to it where their formats matter.
enum class EqualEnds { kLeftOut, kBelong };
ControlEdit FindEdit(const TextMirror& known, ControlRange selectionBefore, const ControlView& control,
                     EqualEnds equalEnds = EqualEnds::kLeftOut);

// The same by reading the whole text.
ControlEdit FindEditByWholeText(const TextMirror& known, const ControlView& control);

// The edit that leads from the known text to another one, both as the control has them.
ControlEdit Difference(const TextMirror& known, std::u16string_view controlText);

// Whether the length of the text, a place in it and the surroundings of the place are as known.
bool LooksTheSame(const TextMirror& known, const ControlView& control, ControlRange place);

}  // namespace scrivanta
