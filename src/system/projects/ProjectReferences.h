// What Visual Basic projects refer to: type libraries, controls, other projects.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scrivanta {

// The identity of a type library. Its numbers are written in hexadecimal wherever they stand.
struct TypeLibraryId {
  std::u16string guid;  // with its braces, in capitals
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t language = 0;

  friend bool operator==(const TypeLibraryId&, const TypeLibraryId&) = default;
};

enum class ReferenceKind { kLibrary, kControl, kProject };

struct ProjectReference {
  ReferenceKind kind = ReferenceKind::kLibrary;
  std::optional<TypeLibraryId> id = {};  // none for a project
  std::u16string name = {};              // the description; may be missing
  // As it stands in the project: absolute, from the project's folder, or a name alone; empty when it is missing.
  std::u16string file = {};
  std::size_t line = 0;  // in the project's file, from 1
};

// A line of a project that looks like a reference and is none that can be understood.
struct UnreadReference {
  std::u16string text;
  std::size_t line = 0;
};

struct ProjectReferences {
  std::vector<ProjectReference> references;
  std::vector<UnreadReference> unread;
};

// Of the text of a project's file (.vbp).
ProjectReferences ReadProject(std::u16string_view text);
// The projects that a group's file (.vbg) names.
std::vector<std::u16string> ReadProjectGroup(std::u16string_view text);

// Where a file of a project lies, seen from the project's folder; both kinds of strokes separate.
std::filesystem::path FileOfProject(const std::filesystem::path& folder, std::u16string_view file);

// "2.0"; both are shown in decimal, as people name versions.
std::u16string VersionText(const TypeLibraryId& id);

}  // namespace scrivanta
