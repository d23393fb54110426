#include "rtf/RtfLosses.h"

#include <algorithm>
#include <array>

#include "rtf/KeptParts.h"
#include "rtf/RtfTokens.h"

namespace scrivanta {

namespace {

struct LostWord {
  std::string_view word;
  RtfLoss loss;
};
// With the number 0 they say that there is none.
constexpr std::array kLostWords = {LostWord{"bkmkstart", RtfLoss::kBookmarks},
                                   LostWord{"caps", RtfLoss::kTextEffects},
                                   LostWord{"charscalex", RtfLoss::kTextEffects},
                                   LostWord{"clmgf", RtfLoss::kTables},
                                   LostWord{"clvmgf", RtfLoss::kTables},
                                   LostWord{"cs", RtfLoss::kStyles},
                                   LostWord{"deleted", RtfLoss::kRevisions},
                                   LostWord{"dn", RtfLoss::kTextEffects},
                                   LostWord{"embo", RtfLoss::kTextEffects},
                                   LostWord{"expnd", RtfLoss::kTextEffects},
                                   LostWord{"expndtw", RtfLoss::kTextEffects},
                                   LostWord{"impr", RtfLoss::kTextEffects},
                                   LostWord{"ls", RtfLoss::kLists},
                                   LostWord{"nestcell", RtfLoss::kTables},
                                   LostWord{"outl", RtfLoss::kTextEffects},
                                   LostWord{"revised", RtfLoss::kRevisions},
                                   LostWord{"s", RtfLoss::kStyles},
                                   LostWord{"scaps", RtfLoss::kTextEffects},
                                   LostWord{"sect", RtfLoss::kSections},
                                   LostWord{"shad", RtfLoss::kTextEffects},
                                   LostWord{"up", RtfLoss::kTextEffects}};

}  // namespace

std::set<RtfLoss> RtfLosses(std::string_view rtf) {
  std::set<RtfLoss> losses;
  KeptParts parts;
  const std::string rest = parts.TakeOutDocument(rtf);
  RtfTokens tokens(rest);
  while (const auto token = tokens.Next()) {
    if (token->kind == RtfToken::Kind::kWord && token->number != 0) {
      const auto* const lost =
          std::ranges::find(kLostWords, token->name, [](const LostWord& candidate) { return candidate.word; });
      if (lost != kLostWords.end()) {
        losses.insert(lost->loss);
      }
    }
  }
  if (parts.ranOut()) {
    losses.insert(RtfLoss::kParts);
  }
  return losses;
}

}  // namespace scrivanta
