#include "regexp/LetterCase.h"

#include <algorithm>
#include <array>

namespace scrivanta {

namespace {

struct Block {
  char16_t first;
  char16_t last;
};

// Blocks of scripts with two cases, and the letterlike signs and numbers among the symbols.
constexpr std::array kBlocks = {
    Block{0x00B5, 0x00B5}, Block{0x00C0, 0x02AF}, Block{0x0345, 0x0345}, Block{0x0370, 0x0587}, Block{0x10A0, 0x10FF},
    Block{0x13A0, 0x13FF}, Block{0x1C80, 0x1CBF}, Block{0x1D79, 0x1D8E}, Block{0x1E00, 0x1FFF}, Block{0x2126, 0x2188},
    Block{0x24B6, 0x24E9}, Block{0x2C00, 0x2D2F}, Block{0xA640, 0xA7FF}, Block{0xAB30, 0xABBF}, Block{0xFF21, 0xFF5A},
};

}  // namespace

bool MayHaveCase(char16_t first, char16_t last) {
  return std::any_of(kBlocks.begin(), kBlocks.end(),
                     [=](const Block& block) { return first <= block.last && last >= block.first; });
}

}  // namespace scrivanta
