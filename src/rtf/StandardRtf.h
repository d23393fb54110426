#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace scrivanta {

// A rich text as every program reads it (Rich Text Format 1.9), out of what a rich edit control writes when it is asked
// for UTF-8, which begins with {\urtf. Asked for a code page a control may write another character that looks alike,
// and so lose the one that was there. What does not begin so comes back as it is.
//
// text gives the text that the control holds, of the same part. It is asked for only where the bytes do not tell: where
// the control had half a pair of surrogates, for which UTF-8 has no bytes, and in the rows of tables.
std::string StandardRtf(std::string_view rtf, const std::function<std::u16string()>& text);

}  // namespace scrivanta
