#include "database/OdbcLocale.h"

namespace scrivanta {

// Windows' manager speaks UTF-16 throughout.
void PrepareOdbcLocale() {}

}  // namespace scrivanta
