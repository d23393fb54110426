// What FrmFind does, without its window.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "search/ComboHistory.h"
#include "search/FileReplace.h"
#include "search/FindState.h"
#include "search/ReplacePreview.h"
#include "shell/workbench/DialogPlace.h"
#include "shell/workbench/Workbench.h"
#include "text/FileWalk.h"
#include "text/Interface.h"

namespace scrivanta {

// The controls of the window as far as the logic reads and sets them. The texts of the boxes are as they are shown,
// with tokens for line breaks and tabs.
class FindView : public Interface {
 public:
  virtual std::u16string FindBox() const = 0;     // Combo1
  virtual std::u16string ReplaceBox() const = 0;  // Combo2
  virtual void SetFindBox(const std::u16string& text, const std::vector<std::u16string>& list) = 0;
  virtual void SetReplaceBox(const std::u16string& text, const std::vector<std::u16string>& list) = 0;

  virtual bool SearchesUp() const = 0;       // Option1, else Option2
  virtual bool MatchesCase() const = 0;      // ChkCapitalCheck
  virtual bool IsRegExp() const = 0;         // ChkRegExpSearch
  virtual bool KeepsFormatting() const = 0;  // ChkIncludeFormat
  virtual bool IsInPart() const = 0;         // ChkInSelection
  virtual void SetInPart(bool isInPart) = 0;
  virtual void SetOptions(bool searchesUp, bool matchesCase, bool isRegExp) = 0;

  virtual std::u16string DropBox() const = 0;  // RichTextBox1
  virtual void SetDropBox(const std::u16string& text) = 0;
  virtual void SetReplaceTip(const std::u16string& tip) = 0;

  // Shows what would be replaced in files until the user agrees or closes the window.
  virtual void ShowPreview(ReplacePreview& preview) = 0;

  virtual DialogPlace Place() const = 0;
  virtual void SetPlace(const DialogPlace& place) = 0;
  // The window moves so that the place is seen, where there is room.
  virtual void MoveOff(const ScreenRect& place) = 0;
};

class FindDialog {
 public:
  FindDialog(Workbench& workbench, FindState& state) : workbench_(workbench), state_(state) {}

  // The window opens: it shows what was found last, or the selection.
  void Open(FindView& view);
  // It is asked for while it is open: what is entered stays, but a selection becomes the text to find.
  void Reopen(FindView& view);
  void Close(const FindView& view);
  // One of the options was clicked.
  void TakeOptions(FindView& view);
  // ChkInSelection was clicked: what is selected now is the part to search and to change, until it is clicked again.
  void TakePart(FindView& view);

  // The buttons. What they throw is shown by the window; the document is then as it was.
  void FindNext(FindView& view);        // CmdFindNext
  void FindPrevious(FindView& view);    // the other way than the options say
  void FindAll(FindView& view);         // CmdFindAll
  void Replace(FindView& view);         // CmdReplace
  void ReplaceAll(FindView& view);      // CmdReplaceAll
  void Filter(FindView& view);          // CmdFilter
  void SearchInFiles(FindView& view);   // CmdSearchInFile
  void ReplaceInFiles(FindView& view);  // CmdReplaceInFile

  // Files dropped on the window are listed in its box; with clear, in place of those that it lists.
  void Drop(FindView& view, const std::vector<std::filesystem::path>& paths, bool clear);

  // F2 in a box: asks for a keyword and moves the items that contain it to the front.
  void FilterFindHistory(FindView& view);
  void FilterReplaceHistory(FindView& view);
  // F1 in a box: opens what the histories are kept in. pointAt tells the registry editor which key to show.
  void ShowStoredHistories(const std::function<void(const std::u16string& key)>& pointAt);

 private:
  std::u16string SelectionToFind() const;
  void Read(FindView& view);
  void ReadOptions(const FindView& view);
  bool ReadToSearch(FindView& view);
  void ConfineTo(std::optional<TextRange> part);
  TextRange PartToChange();
  void ShowPlace(FindView& view);
  void SaveHistories();
  void ReplaceAllPlain(TextRange selection);
  void ReplaceAllFormatted(TextRange selection);
  void ReportReplaced(std::size_t replaced, std::size_t split);
  std::optional<std::u16string> ReplacementOfSelection();
  std::vector<std::filesystem::path> DroppedFiles(const FindView& view) const;
  std::optional<FoundFiles> FilesToReplaceIn(const FindView& view);
  ReplacePlan PlanOf(const FoundFiles& found, const ReplaceRule& rule);
  void ReportReplacedInFiles(const FileReplaceOutcome& outcome, std::size_t split);

  Workbench& workbench_;
  FindState& state_;
  ComboHistory findHistory_;
  ComboHistory replaceHistory_;
};

}  // namespace scrivanta
