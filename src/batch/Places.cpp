#include "batch/Places.h"

#include <system_error>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"

namespace scrivanta {

void AddPlaces(CLI::App& parser, const std::string& name, const std::string& description) {
  // Only shown in the help: the parser would take a list of folders apart at brackets and commas, "[a,b]" becoming a
  // and b. What it leaves over is read as it stands.
  parser.add_option(name, description)->expected(0);
  parser.allow_extras();
}

std::vector<std::filesystem::path> PlacesOf(const CLI::App& parser) {
  std::vector<std::filesystem::path> places;
  for (const std::string& argument : parser.remaining()) {
    if (argument.starts_with("-")) {
      throw UnusableArguments("The following argument was not expected: " + argument);
    }
    places.push_back(PathFromUtf8(argument));
  }
  return places;
}

void CheckPlaces(const std::vector<std::filesystem::path>& places, const std::string& name) {
  if (places.empty()) {
    throw UnusableArguments(name + " is required");
  }
  for (const std::filesystem::path& place : places) {
    std::error_code error;
    if (!std::filesystem::exists(place, error)) {
      throw FileError(place, error ? error : std::make_error_code(std::errc::no_such_file_or_directory));
    }
  }
}

std::vector<std::filesystem::path> ExistingPlacesOf(const CLI::App& parser, const std::string& name) {
  std::vector<std::filesystem::path> places = PlacesOf(parser);
  CheckPlaces(places, name);
  return places;
}

}  // namespace scrivanta
