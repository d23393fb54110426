// The clipboard, for tests.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

void PutOnClipboard(std::u16string_view text);
// Empty when there is no text on it.
std::u16string TextOnClipboard();

}  // namespace scrivanta
