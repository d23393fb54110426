#include "system/projects/ReferenceHandlers.h"

#include <algorithm>
#include <vector>

#include "system/projects/ReferenceTable.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/DocumentFormat.h"
#include "text/FileFailure.h"
#include "text/LineText.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/UpperCase.h"

namespace scrivanta {

namespace {

bool IsGroup(const std::filesystem::path& file) {
  return UpperCase(ExtensionOf(TextOfPath(file))) == u".VBG";
}

class Reading {
 public:
  Reading(const RegistryKeys& keys, Progress& progress) : keys_(keys), progress_(progress) {}

  void Add(const std::vector<std::filesystem::path>& files) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      progress_.Report(i, files.size());
      Add(files[i]);
    }
  }

  const ReferenceTable& table() const { return table_; }
  const std::vector<FileFailure>& failures() const { return failures_; }

 private:
  void Add(const std::filesystem::path& file) {
    if (std::ranges::find(seen_, file) != seen_.end()) {
      return;  // chosen, and in a group
    }
    seen_.push_back(file);
    try {
      const std::u16string text = DecodeDocument(ReadWholeFile(file)).text;
      if (IsGroup(file)) {
        for (const std::u16string& project : ReadProjectGroup(text)) {
          Add(FileOfProject(file.parent_path(), project));
        }
      } else {
        AddReferences(table_, file, ReadProject(text), keys_);
      }
    } catch (const FileError& error) {
      failures_.push_back(FailureOf(file, error));
    }
  }

  const RegistryKeys& keys_;
  Progress& progress_;
  ReferenceTable table_ = StartReferenceTable();
  std::vector<FileFailure> failures_;
  std::vector<std::filesystem::path> seen_;
};

}  // namespace

void mnuVBreferences(Workbench& workbench, const RegistryKeys& keys) {
  const std::vector<std::filesystem::path> files = workbench.prompts().AskForFiles(
      {.filter = u"*.vbp;*.vbg", .initialFolder = workbench.document().Path().parent_path()});
  if (files.empty()) {
    return;
  }
  std::vector<FileFailure> failures;
  {
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    Reading reading(keys, work->progress());
    reading.Add(files);
    const ReferenceTable& table = reading.table();
    failures = reading.failures();
    if (table.references > 0 || failures.empty()) {
      workbench.editor().ReplaceSelection(table.lines);
    }
    workbench.ShowStatus(u"引用" + DecimalText(table.references) + u"个，文件不在" + DecimalText(table.missing) +
                         u"个，未登记" + DecimalText(table.unregistered) + u"个");
  }
  if (!failures.empty()) {
    workbench.prompts().Ask(
        {.text = u"有工程未能读取。" + DescribeFailures(u"以下文件未能读取：", failures), .icon = Icon::kWarning});
  }
}

void mnuTypeLibraries(Workbench& workbench, const RegistryKeys& keys) {
  const std::u16string filter =
      workbench.prompts().Input({.prompt = u"列出名称、文件或编号里有这些字的类型库（* 是全部）：", .preset = u"*"});
  if (filter.empty()) {
    return;
  }
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  const std::u16string lines =
      TypeLibraryTable(AllTypeLibraries(keys, work->progress()), filter == u"*" ? u"" : std::u16string_view(filter));
  workbench.editor().ReplaceSelection(lines);
  workbench.ShowStatus(u"类型库" + DecimalText(SplitLines(lines).size() - 1) + u"个");
}

}  // namespace scrivanta
