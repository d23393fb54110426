// The type libraries that are registered.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "system/projects/ProjectReferences.h"
#include "system/registry/RegistryKeys.h"
#include "text/Progress.h"

namespace scrivanta {

struct RegisteredLibrary {
  TypeLibraryId id = {};
  std::u16string name = {};
  std::u16string file = {};  // that of 32-bit programs before that of 64-bit ones; may end in "\2", a place in the file
  bool has32Bit = false;
  bool has64Bit = false;
};

// In the order of their names. Throws RegistryError when there is no list of them.
std::vector<RegisteredLibrary> AllTypeLibraries(const RegistryKeys& keys, Progress& progress);
// Every version and language of one of them; none when it is not registered.
std::vector<RegisteredLibrary> TypeLibrariesOf(const RegistryKeys& keys, std::u16string_view guid);

// Without the place in the file.
std::u16string FileOfLibrary(std::u16string_view registered);

}  // namespace scrivanta
