// The drivers of Jet files (.mdb, .accdb).
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace scrivanta {

bool IsJetFile(const std::filesystem::path& file);

// The best of the drivers that are there for such a file; nothing when none will do. The driver that every Windows
// carries reads .mdb alone.
std::optional<std::u16string> ChooseJetDriver(const std::vector<std::u16string>& drivers,
                                              const std::filesystem::path& file);

// What ODBC is to be given to open the file with the driver; the password may be empty.
std::u16string JetConnectionString(std::u16string_view driver, const std::filesystem::path& file,
                                   std::u16string_view password);

}  // namespace scrivanta
