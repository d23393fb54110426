#include "system/projects/ProjectReferences.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "text/DecimalText.h"
#include "text/Hexadecimal.h"
#include "text/LineText.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kBlanks = u" \t";

bool StartsWithKey(std::u16string_view line, std::u16string_view key) {
  return line.size() > key.size() && line[key.size()] == u'=' &&
         UpperCase(line.substr(0, key.size())) == UpperCase(key);
}

// What stands before the separator, which goes with it; all where there is none.
std::u16string_view TakeUntil(std::u16string_view& text, char16_t separator) {
  const std::size_t end = text.find(separator);
  const std::u16string_view part = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  return part;
}

bool IsGuid(std::u16string_view text) {
  constexpr std::u16string_view kForm = u"{########-####-####-####-############}";
  return std::ranges::equal(text, kForm, [](char16_t c, char16_t form) {
    return form == u'#' ? c < 0x80 && std::isxdigit(static_cast<int>(c)) != 0 : c == form;
  });
}

// "{GUID}#2.0#0", taken off the text with the "#" or ";" behind it.
std::optional<TypeLibraryId> TakeId(std::u16string_view& text, char16_t behind) {
  const std::u16string_view guid = TakeUntil(text, u'#');
  std::u16string_view version = TakeUntil(text, u'#');
  const auto major = ParseHexadecimal(TakeUntil(version, u'.'));
  const auto minor = ParseHexadecimal(version);
  const auto language = ParseHexadecimal(Trim(TakeUntil(text, behind), kBlanks));
  if (!IsGuid(guid) || !major || !minor || !language) {
    return std::nullopt;
  }
  return TypeLibraryId{.guid = UpperCase(guid), .major = *major, .minor = *minor, .language = *language};
}

// Without the blanks and the quotes around it.
std::u16string_view Value(std::u16string_view text) {
  text = Trim(text, kBlanks);
  return text.size() > 1 && text.front() == u'"' && text.back() == u'"' ? text.substr(1, text.size() - 2) : text;
}

std::optional<ProjectReference> ReadReference(std::u16string_view text, ReferenceKind kind) {
  constexpr std::u16string_view kProject = u"*\\A";
  constexpr std::array<std::u16string_view, 2> kLibraries = {u"*\\G", u"*\\H"};
  text = Value(text);
  ProjectReference reference{.kind = kind};
  if (text.starts_with(kProject)) {
    text.remove_prefix(kProject.size());
    reference.kind = ReferenceKind::kProject;
    reference.file = Trim(text, kBlanks);
    return reference.file.empty() ? std::nullopt : std::optional(reference);
  }
  const bool isLibrary =
      std::ranges::any_of(kLibraries, [text](std::u16string_view start) { return text.starts_with(start); });
  text.remove_prefix(isLibrary ? kLibraries.front().size() : 0);
  reference.id = TakeId(text, isLibrary ? u'#' : u';');
  if (!reference.id) {
    return std::nullopt;
  }
  reference.file = Trim(isLibrary ? TakeUntil(text, u'#') : text, kBlanks);
  reference.name = isLibrary ? Trim(text, kBlanks) : text.substr(0, 0);
  return reference;
}

template <typename Take>
void ForEachLine(std::u16string_view text, Take take) {
  std::size_t number = 0;
  while (!text.empty()) {
    std::u16string_view line = TakeUntil(text, u'\n');
    line = Trim(line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line, kBlanks);
    take(line, ++number);
  }
}

}  // namespace

ProjectReferences ReadProject(std::u16string_view text) {
  constexpr std::u16string_view kReference = u"Reference";
  constexpr std::u16string_view kObject = u"Object";
  ProjectReferences read;
  bool isInSection = false;  // of another program's settings, at the end
  ForEachLine(text, [&](std::u16string_view line, std::size_t number) {
    isInSection = isInSection || line.starts_with(u'[');
    const bool isReference = StartsWithKey(line, kReference);
    if (isInSection || !(isReference || StartsWithKey(line, kObject))) {
      return;
    }
    std::optional<ProjectReference> reference = ReadReference(
        line.substr(line.find(u'=') + 1), isReference ? ReferenceKind::kLibrary : ReferenceKind::kControl);
    if (reference) {
      reference->line = number;
      read.references.push_back(std::move(*reference));
    } else {
      read.unread.push_back({.text = std::u16string(line), .line = number});
    }
  });
  return read;
}

std::vector<std::u16string> ReadProjectGroup(std::u16string_view text) {
  std::vector<std::u16string> projects;
  ForEachLine(text, [&projects](std::u16string_view line, std::size_t) {
    if (StartsWithKey(line, u"Project") || StartsWithKey(line, u"StartupProject")) {
      if (const std::u16string_view project = Value(line.substr(line.find(u'=') + 1)); !project.empty()) {
        projects.emplace_back(project);
      }
    }
  });
  return projects;
}

std::filesystem::path FileOfProject(const std::filesystem::path& folder, std::u16string_view file) {
  std::u16string portable(file);
  std::ranges::replace(portable, u'\\', u'/');
  return (folder / PathOfText(portable)).lexically_normal().make_preferred();
}

std::u16string VersionText(const TypeLibraryId& id) {
  return DecimalText(id.major) + u"." + DecimalText(id.minor);
}

}  // namespace scrivanta
