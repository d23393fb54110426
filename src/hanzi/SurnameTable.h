// Surnames that are read otherwise than the same characters elsewhere.
#pragma once

#include <span>

#include "hanzi/HanziTable.h"

namespace scrivanta {

std::span<const PhraseRow> Surnames() noexcept;

}  // namespace scrivanta
