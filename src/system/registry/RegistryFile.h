// The text of registry files: version 5, in UTF-16, and version 4, in GBK, which is only read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "system/registry/RegistryChange.h"

namespace scrivanta {

// A whole file, with its byte-order mark.
std::string RegistryFileOf(const std::vector<RegistryChange>& changes);

// Throws ExplainedError that names the line.
std::vector<RegistryChange> ReadRegistryFile(std::string_view bytes);

}  // namespace scrivanta
