#include "text/EnvironmentText.h"

#include <cstdlib>

#include "text/Encoding.h"

namespace scrivanta {

std::optional<std::u16string> EnvironmentText(std::u16string_view name) {
  const char* const value = std::getenv(Encode(Encoding::kUtf8, name).c_str());
  return value == nullptr ? std::nullopt : std::optional(Decode(Encoding::kUtf8, value));
}

}  // namespace scrivanta
