// Lines that are read more than once.
#pragma once

#include <functional>
#include <memory>

#include "text/LineReader.h"

namespace scrivanta {

// Gives a reader at the first line again. The one given before is gone by then.
using LinePass = std::function<std::unique_ptr<LineReader>()>;

}  // namespace scrivanta
