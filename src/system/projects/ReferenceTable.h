// The references of projects, and registered type libraries, as tables with tabs.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "system/projects/ProjectReferences.h"
#include "system/projects/TypeLibraries.h"
#include "system/registry/RegistryKeys.h"

namespace scrivanta {

struct ReferenceTable {
  std::u16string lines;  // with the titles of the columns, each ended by CR LF
  std::size_t references = 0;
  std::size_t missing = 0;  // whose file is not there
  std::size_t unregistered = 0;
};

ReferenceTable StartReferenceTable();
// Looks where the files are, and what the registry says. Throws RegistryError.
void AddReferences(ReferenceTable& table, const std::filesystem::path& project, const ProjectReferences& references,
                   const RegistryKeys& keys);

// Those that have the text in their name, their file or their identity; all for an empty one.
std::u16string TypeLibraryTable(const std::vector<RegisteredLibrary>& libraries, std::u16string_view filter);

}  // namespace scrivanta
