// The clipboard, for tests.
#pragma once

#include <string>

namespace scrivanta {

// Empty when there is no text on it.
std::u16string TextOnClipboard();

}  // namespace scrivanta
