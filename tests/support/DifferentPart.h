// What distinguishes two versions of a text.
#pragma once

namespace scrivanta::testing {

// What one version has that the other has not, between their common beginning and end. Text is a string view.
template <typename Text>
Text DifferentPart(Text text, Text other) {
  while (!text.empty() && !other.empty() && text.front() == other.front()) {
    text.remove_prefix(1);
    other.remove_prefix(1);
  }
  while (!text.empty() && !other.empty() && text.back() == other.back()) {
    text.remove_suffix(1);
    other.remove_suffix(1);
  }
  return text;
}

}  // namespace scrivanta::testing
