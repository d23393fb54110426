// A rich edit control that is filled where nobody sees it, and then takes the place of another one. A control takes its
// old lines out one by one, in a time that may grow with the cube of their number: a new one is filled, and the old one
// destroyed, in linear time.
#pragma once

#include "win/RichEdit.h"

namespace scrivanta {

// Destroyed with this unless it has taken the other one's place.
class FreshRichEdit {
 public:
  FreshRichEdit(RichEdit& old, int controlId) : old_(old) { box_.CreateLike(old, controlId); }
  FreshRichEdit(const FreshRichEdit&) = delete;
  FreshRichEdit& operator=(const FreshRichEdit&) = delete;
  ~FreshRichEdit();

  RichEdit& box() noexcept { return box_; }

  // Shows it above the other one, for reading, until this goes.
  void ShowAbove();

  // Takes over place, identifier, focus, event mask and whatever else the user could tell the two apart by. The old
  // control is destroyed, and the RichEdit that stood for it stands for this one.
  void TakePlace();

 private:
  RichEdit& old_;
  RichEdit box_;
};

}  // namespace scrivanta
