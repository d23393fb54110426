// The files and folders that a command of the console program is given.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace scrivanta {

// Makes the parser take what belongs to no option; name and description are shown in its help.
void AddPlaces(CLI::App& parser, const std::string& name, const std::string& description);
// Those that were given, as they stand. Throws UnusableArguments for one that begins as an option does.
std::vector<std::filesystem::path> PlacesOf(const CLI::App& parser);
// Throws UnusableArguments when there is none, FileError when one does not exist.
void CheckPlaces(const std::vector<std::filesystem::path>& places, const std::string& name);

// Those that were given, checked.
std::vector<std::filesystem::path> ExistingPlacesOf(const CLI::App& parser, const std::string& name);

}  // namespace scrivanta
