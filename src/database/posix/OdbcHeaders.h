// ODBC's C interface, version 3, with UTF-16 text.
#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
