#include "tables/FrmTableDialogs.h"

namespace scrivanta {}  // namespace scrivanta
