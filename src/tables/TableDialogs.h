// The windows of the commands that work on tables, as the handlers see them: Frm... classes on the real desktop,
// scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class TableDialogs : public Interface {};

}  // namespace scrivanta
