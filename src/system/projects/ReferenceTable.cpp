#include "system/projects/ReferenceTable.h"

#include <algorithm>
#include <system_error>

#include "text/DecimalText.h"
#include "text/LineText.h"
#include "text/PlatformFile.h"
#include "text/SameFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

std::u16string_view KindText(ReferenceKind kind) {
  switch (kind) {
    case ReferenceKind::kLibrary:
      return u"引用";
    case ReferenceKind::kControl:
      return u"部件";
    case ReferenceKind::kProject:
      break;
  }
  return u"工程";
}

bool IsThere(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::exists(file, error);
}

bool IsNameAlone(std::u16string_view file) {
  return file.find_first_of(u"\\/") == file.npos;
}

// What the registry knows of a library.
struct Registration {
  std::u16string text;
  std::u16string name;
  std::u16string file;
  bool isRegistered = false;
};

Registration RegistrationOf(const RegistryKeys& keys, const TypeLibraryId& id) {
  const std::vector<RegisteredLibrary> versions = TypeLibrariesOf(keys, id.guid);
  const RegisteredLibrary* found = nullptr;
  std::u16string others;
  for (const RegisteredLibrary& library : versions) {
    if (library.id.major == id.major && library.id.minor == id.minor) {
      found = found == nullptr || library.id.language == id.language ? &library : found;
    } else {
      others += (others.empty() ? u"" : u"、") + VersionText(library.id);
    }
  }
  if (found != nullptr) {
    return {.text = u"已登记", .name = found->name, .file = FileOfLibrary(found->file), .isRegistered = true};
  }
  return {.text = others.empty() ? u"未登记" : u"登记的是" + others + u"版", .name = {}, .file = {}};
}

}  // namespace

ReferenceTable StartReferenceTable() {
  ReferenceTable table;
  table.lines += TableLine({u"种类", u"名称", u"版本", u"文件", u"在不在", u"登记", u"登记的文件", u"编号", u"工程"});
  return table;
}

void AddReferences(ReferenceTable& table, const std::filesystem::path& project, const ProjectReferences& references,
                   const RegistryKeys& keys) {
  const std::u16string projectText = TextOfPath(project);
  for (const ProjectReference& reference : references.references) {
    Registration registration;
    if (reference.id) {
      registration = RegistrationOf(keys, *reference.id);
    }
    std::filesystem::path file = FileOfProject(project.parent_path(), FileOfLibrary(reference.file));
    const bool isElsewhere = (reference.file.empty() || IsNameAlone(reference.file)) && !IsThere(file);
    // A control is named without its folder: it is where it is registered.
    if (isElsewhere && registration.isRegistered) {
      file = PathOfText(registration.file);
    }
    const bool isThere = !reference.file.empty() || registration.isRegistered ? IsThere(file) : false;
    if (registration.isRegistered && !isElsewhere && !IsSameFile(file, PathOfText(registration.file))) {
      registration.text = u"登记在别处";
    }
    ++table.references;
    table.missing += isThere ? 0 : 1;
    table.unregistered += reference.id && !registration.isRegistered ? 1 : 0;
    table.lines += TableLine({KindText(reference.kind), reference.name.empty() ? registration.name : reference.name,
                              reference.id ? VersionText(*reference.id) : std::u16string(), TextOfPath(file),
                              isThere ? u"在" : u"不在", registration.text, registration.file,
                              reference.id ? reference.id->guid : std::u16string(), projectText});
  }
  for (const UnreadReference& unread : references.unread) {
    table.lines += TableLine({u"看不懂", unread.text, u"", u"", u"", u"", u"", u"",
                              projectText + u"，第" + DecimalText(unread.line) + u"行"});
  }
}

std::u16string TypeLibraryTable(const std::vector<RegisteredLibrary>& libraries, std::u16string_view filter) {
  const std::u16string wanted = UpperCase(filter);
  std::u16string lines;
  lines += TableLine({u"名称", u"版本", u"语言", u"文件", u"在不在", u"位数", u"编号"});
  for (const RegisteredLibrary& library : libraries) {
    if (UpperCase(library.name + u"\n" + library.file + u"\n" + library.id.guid).find(wanted) == wanted.npos) {
      continue;
    }
    lines += TableLine({library.name, VersionText(library.id), DecimalText(library.id.language), library.file,
                        IsThere(PathOfText(FileOfLibrary(library.file))) ? u"在" : u"不在",
                        library.has32Bit && library.has64Bit ? u"32、64"
                        : library.has32Bit                   ? u"32"
                                                             : u"64",
                        library.id.guid});
  }
  return lines;
}

}  // namespace scrivanta
