#include "database/OdbcLocale.h"

#include <clocale>

namespace scrivanta {

void PrepareOdbcLocale() {
  std::setlocale(LC_CTYPE, "C.UTF-8");
}

}  // namespace scrivanta
