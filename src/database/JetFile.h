#pragma once

#include <filesystem>
#include <string_view>

namespace scrivanta {

// Makes an empty Jet file through its driver; the file must not be there. Throws DatabaseError.
void MakeJetFile(std::u16string_view driver, const std::filesystem::path& file);

}  // namespace scrivanta
