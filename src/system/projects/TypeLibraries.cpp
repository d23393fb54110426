#include "system/projects/TypeLibraries.h"

#include <algorithm>
#include <optional>

#include "system/registry/RegistryData.h"
#include "text/Hexadecimal.h"
#include "text/NaturalOrder.h"

namespace scrivanta {

namespace {

constexpr char16_t kLibraries[] = u"HKEY_CLASSES_ROOT\\TypeLib";

std::u16string DefaultText(const RegistryKeys& keys, const std::u16string& key) {
  const auto value = FindValue(keys, key, u"");
  return value ? TextOfRegistryData(value->bytes) : std::u16string();
}

// Beside the languages other keys stand there, and what nobody may read is left out.
void AddLanguages(const RegistryKeys& keys, const std::u16string& key, const RegisteredLibrary& version,
                  std::vector<RegisteredLibrary>& found) {
  for (const std::u16string& name : keys.Subkeys(key)) {
    const std::optional<std::uint32_t> language = ParseHexadecimal(name);
    if (!language) {
      continue;
    }
    RegisteredLibrary library = version;
    library.id.language = *language;
    const std::u16string below = key + u"\\" + name + u"\\";
    library.has32Bit = keys.Has(below + u"win32");
    library.has64Bit = keys.Has(below + u"win64");
    if (library.has32Bit || library.has64Bit) {
      library.file = DefaultText(keys, below + (library.has32Bit ? u"win32" : u"win64"));
      found.push_back(std::move(library));
    }
  }
}

void AddVersions(const RegistryKeys& keys, const std::u16string& guid, std::vector<RegisteredLibrary>& found) {
  const std::u16string key = std::u16string(kLibraries) + u"\\" + guid;
  for (const std::u16string& name : keys.Subkeys(key)) {
    const std::size_t dot = name.find(u'.');
    const auto major = ParseHexadecimal(std::u16string_view(name).substr(0, dot));
    const auto minor = dot == name.npos ? std::nullopt : ParseHexadecimal(std::u16string_view(name).substr(dot + 1));
    if (major && minor) {
      const std::u16string below = key + u"\\" + name;
      AddLanguages(keys, below,
                   {.id = {.guid = guid, .major = *major, .minor = *minor}, .name = DefaultText(keys, below)}, found);
    }
  }
}

}  // namespace

std::vector<RegisteredLibrary> AllTypeLibraries(const RegistryKeys& keys, Progress& progress) {
  std::vector<RegisteredLibrary> found;
  const std::vector<std::u16string> guids = keys.Subkeys(kLibraries);
  for (std::size_t i = 0; i < guids.size(); ++i) {
    progress.Report(i, guids.size());
    try {
      AddVersions(keys, guids[i], found);
    } catch (const RegistryError&) {
      continue;
    }
  }
  std::ranges::stable_sort(found, [](const RegisteredLibrary& left, const RegisteredLibrary& right) {
    return NaturalLess(left.name, right.name);
  });
  return found;
}

std::vector<RegisteredLibrary> TypeLibrariesOf(const RegistryKeys& keys, std::u16string_view guid) {
  std::vector<RegisteredLibrary> found;
  if (keys.Has(std::u16string(kLibraries) + u"\\" + std::u16string(guid))) {
    AddVersions(keys, std::u16string(guid), found);
  }
  return found;
}

std::u16string FileOfLibrary(std::u16string_view registered) {
  const std::size_t stroke = registered.rfind(u'\\');
  const bool hasPlace = stroke != registered.npos && stroke + 1 < registered.size() &&
                        registered.find_first_not_of(u"0123456789", stroke + 1) == registered.npos;
  return std::u16string(hasPlace ? registered.substr(0, stroke) : registered);
}

}  // namespace scrivanta
