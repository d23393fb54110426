// What cards of 3.0 (RFC 2426) and 4.0 (RFC 6350) write otherwise than those of 2.1.
#pragma once

#include "contacts/CardProperty.h"

namespace scrivanta {

// Types one by one and bare ("TYPE=cell,voice" becomes "CELL" and "VOICE"), photos that a phone reads, numbers and
// addresses without their "tel:" and "mailto:", the raw lines those of 2.1. The value's escapes stay what they are.
void MakeCard21(CardProperty& property);

}  // namespace scrivanta
