// What FrmMergeFile does, without its window.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "tables/FileMerge.h"
#include "text/Interface.h"

namespace scrivanta {

// The window's controls.
class MergeView : public Interface {
 public:
  virtual std::u16string Pattern() const = 0;                             // TxtMergePattern
  virtual bool WithSubfolders() const = 0;                                // ChkMergeSubfolder
  virtual bool WithTitles() const = 0;                                    // ChkMergeTitle
  virtual bool IntoFile() const = 0;                                      // OptMergeToFile, else into the document
  virtual void ShowPlaces(const std::vector<std::u16string>& lines) = 0;  // LstMergeFile
  virtual void CloseView() = 0;
};

class MergeDialog {
 public:
  explicit MergeDialog(Workbench& workbench) : workbench_(workbench) {}

  // Files and folders, chosen or dropped. They stand in natural order, each once.
  void Add(const std::vector<std::filesystem::path>& places, MergeView& view);
  // The one of the list, from 0.
  void Remove(std::size_t index, MergeView& view);
  // The button CmdStartMerge. Throws FileError, Interrupted.
  void Start(MergeView& view);

 private:
  void Show(MergeView& view) const;
  bool AskForTarget(std::filesystem::path& target);
  FilesToMerge Find(const MergePlaces& places);
  std::vector<FileFailure> MergeIntoDocument(const FilesToMerge& found, MergeOptions options);
  std::vector<FileFailure> MergeIntoFile(const FilesToMerge& found, const MergeOptions& options,
                                         const std::filesystem::path& target);
  void Report(std::size_t files, const std::vector<FileFailure>& failures);

  Workbench& workbench_;
  std::vector<std::filesystem::path> places_;
};

}  // namespace scrivanta
