// The dialect's tree in the words of PCRE2 (16-bit, newline LF, PCRE2_DOLLAR_ENDONLY, PCRE2_MATCH_UNSET_BACKREF,
// PCRE2_NEVER_UTF).
//
// Where the engine differs from the dialect, the translation adds to the pattern:
// - Every round of a repeated group begins with all groups inside it unset, and the engine keeps what an earlier round
//   has captured. So an empty group, a marker, notes where the latest round has begun, and a capture that lies before
//   it is stale. A back reference to such a group asks by a callout whether it is stale.
// - A round that matches nothing is no round, where no more rounds are required. A callout at its end refuses it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "regexp/RegExp.h"
#include "regexp/RegExpSyntax.h"

namespace scrivanta {

// Where a group of the dialect is found in a match of the engine.
struct PcreGroup {
  unsigned number = 0;            // the engine's
  std::vector<unsigned> markers;  // the engine's groups; a capture that begins before one of them is stale
};

// What a callout of the translation asks. Its callout string is "cN", N an index in PcrePattern::checks.
struct PcreCheck {
  enum class Kind {
    kFresh,          // go on when the group has a capture that is not stale, or none at all
    kStale,          // go on when it has a stale one
    kRoundNotEmpty,  // go on when the round has matched something, or (with a loop marker) is the first of its loop
  };
  Kind kind = Kind::kFresh;
  unsigned group = 0;  // the dialect's
  unsigned roundMarker = 0;
  unsigned loopMarker = 0;  // 0: none
};

struct PcrePattern {
  std::u16string text;
  std::vector<std::size_t> sources;  // for every unit of text: the place in the pattern that it came from
  std::vector<PcreGroup> groups;     // group n of the dialect stands at n - 1
  std::vector<PcreCheck> checks;
  bool needsUnicodeCase = false;  // compile with PCRE2_UCP
  bool staysInLine = false;       // as RegExp::StaysInLine
};

PcrePattern TranslateToPcre(const RegExpTree& tree, RegExpOptions options);

}  // namespace scrivanta
