// Some operations are required to end without a word when they fail.
#pragma once

#include <exception>

namespace scrivanta {

// Runs the work; an error ends it, and that is all.
template <typename Work>
void Quietly(Work work) {
  try {
    work();
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace scrivanta
