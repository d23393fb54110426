// Which characters may have an upper and a lower case.
#pragma once

namespace scrivanta {

// Whether a range holds a character beyond ASCII of which the engine knows another case. Generous: true also for some
// others of the same scripts; false for all Chinese characters and punctuation.
bool MayHaveCase(char16_t first, char16_t last);

}  // namespace scrivanta
