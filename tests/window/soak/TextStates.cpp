#include "window/soak/TextStates.h"

#include "window/driver/WindowProbe.h"

namespace scrivanta {

void TextStates::Reset(const std::u16string& text) {
  states_ = {{text, false}};
  current_ = 0;
}

void TextStates::Note(const std::u16string& text, bool typed) {
  states_.resize(current_ + 1);
  states_.push_back({text, typed});
  ++current_;
}

bool TextStates::Undo(const std::u16string& result) {
  for (std::size_t state = current_; state-- > 0;) {
    if (states_[state].text == result) {
      current_ = state;
      return true;
    }
    if (!states_[state + 1].typed || !states_[state].typed) {
      return false;
    }
  }
  return false;
}

std::string TextStates::Describe() const {
  constexpr std::size_t kDescribed = 4;
  std::string description;
  for (std::size_t back = 1; back <= kDescribed && back <= current_; ++back) {
    const State& state = states_[current_ - back];
    description += "\n  " + Shown(state.text) + (state.typed ? " (typed)" : "");
  }
  return description;
}

bool TextStates::Redo(const std::u16string& result) {
  for (std::size_t state = current_ + 1; state < states_.size(); ++state) {
    if (states_[state].text == result) {
      current_ = state;
      return true;
    }
    if (!states_[state].typed) {
      return false;
    }
  }
  return false;
}

}  // namespace scrivanta
