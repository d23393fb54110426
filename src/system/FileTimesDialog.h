// What FrmFileTimes does, without its window.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "system/FileTimesChange.h"
#include "text/Interface.h"

namespace scrivanta {

enum class FileTimesSource { kMoment, kOther, kName, kItself };

// What the controls hold.
struct FileTimesForm {
  std::u16string places;                            // TxtPlaces: files and folders, one a line
  std::u16string pattern;                           // TxtFilePattern
  bool subfolders = true;                           // ChkSubfolders
  bool folders = false;                             // ChkFolders
  std::array<bool, kFileTimeKinds.size()> kinds{};  // ChkCreated, ChkModified, ChkAccessed
  FileTimesSource source = FileTimesSource::kMoment;
  std::u16string moment;                         // TxtMoment
  FileTimeKind other = FileTimeKind::kModified;  // CboOther
  std::u16string namePattern;                    // TxtNamePattern
  std::u16string shift;                          // TxtShift
};

// A line of the list.
struct FileTimesRow {
  std::u16string before;
  std::u16string after;
  std::u16string path;
  std::u16string remark;
};

class FileTimesView : public Interface {
 public:
  virtual FileTimesForm Form() const = 0;
  virtual void AddPlace(const std::u16string& place) = 0;
  virtual void ShowList(const std::vector<FileTimesRow>& rows) = 0;
  virtual void ShowRemark(const std::u16string& text) = 0;  // LblRemark
  virtual void EnableChange(bool enable) = 0;               // CmdChangeTimes
};

class FileTimesDialog {
 public:
  FileTimesDialog(Workbench& workbench, const FileTimesStore& store, const TimeZone& zone)
      : workbench_(workbench), store_(store), zone_(zone) {}

  // What the window begins with: the selected lines, or the document's own file.
  FileTimesForm FirstForm() const;
  // The button CmdAddFolder.
  void AddFolder(FileTimesView& view);
  // The button CmdListTimes: shows what each file has and would get; only then it can be changed. Throws Interrupted.
  void List(FileTimesView& view);
  // A control was changed: what is listed is no longer what is asked for.
  void Forget(FileTimesView& view);
  // The button CmdChangeTimes: writes the text that takes the change back, and changes what is listed.
  void Change(FileTimesView& view);
  // The button CmdUndoTimes: lists what a text of that kind would bring back. Throws FileError.
  void ListUndo(FileTimesView& view);

 private:
  FileTimesRules RulesOf(const FileTimesForm& form) const;
  void ShowPlan(FileTimesView& view);
  FileTimesRow RowOf(const FileTimesEntry& entry, std::u16string_view remark) const;

  Workbench& workbench_;
  const FileTimesStore& store_;
  const TimeZone& zone_;
  FileTimesPlan plan_;
};

}  // namespace scrivanta
