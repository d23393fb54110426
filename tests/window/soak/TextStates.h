// The texts that a document has had, as undoing goes back through them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace scrivanta {

class TextStates {
 public:
  void Reset(const std::u16string& text);
  // Typed text may be gathered with what was typed before it into one step.
  void Note(const std::u16string& text, bool typed);

  const std::u16string& text() const noexcept { return states_[current_].text; }
  bool canUndo() const noexcept { return current_ > 0; }

  // Whether undoing, or redoing, may have led to this text; it is the present one then.
  bool Undo(const std::u16string& result);
  bool Redo(const std::u16string& result);
  // The texts before the present one, the last first, for a person to read.
  std::string Describe() const;
  void ForgetUndone() { states_.resize(current_ + 1); }

 private:
  struct State {
    std::u16string text;
    bool typed = false;
  };

  std::vector<State> states_;
  std::size_t current_ = 0;
};

}  // namespace scrivanta
