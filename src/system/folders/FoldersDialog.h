// What FrmFolders does, without its window.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "system/folders/ShortcutPlan.h"
#include "text/Interface.h"

namespace scrivanta {

// A folder that the system has a name for; the path is empty where it has none here.
struct SpecialFolder {
  std::u16string name;
  std::filesystem::path path;
};

class SpecialFolders : public Interface {
 public:
  virtual std::vector<SpecialFolder> List() const = 0;
};

// What FrmShortcut holds.
struct ShortcutForm {
  std::u16string file;  // the shortcut's own
  Shortcut shortcut;
  std::u16string icon;    // as IconText has it
  std::u16string hotKey;  // as HotKeyText has it
  bool isNew = true;      // else the file stays
};

struct ShortcutRow {
  std::u16string file;
  std::u16string target;
  std::u16string arguments;
  std::u16string folder;
  std::u16string icon;
  std::u16string hotKey;
  std::u16string corrected;
  std::u16string remark;
};

class FoldersView : public Interface {
 public:
  virtual void ShowFolders(const std::vector<SpecialFolder>& folders) = 0;
  virtual std::u16string Places() const = 0;  // TxtShortcutPlaces: shortcuts and folders, one a line
  virtual void SetPlaces(const std::u16string& places) = 0;
  virtual void ShowShortcuts(const std::vector<ShortcutRow>& rows) = 0;
  virtual void ShowRemark(const std::u16string& text) = 0;
  virtual void EnableChange(bool enable) = 0;
  // The form as the user has filled it; nothing when it was cancelled. The check throws what is wrong with it, and the
  // window stays open.
  virtual std::optional<ShortcutForm> AskForShortcut(const ShortcutForm& form,
                                                     const std::function<void(const ShortcutForm&)>& check) = 0;
};

class FoldersDialog {
 public:
  FoldersDialog(Workbench& workbench, const SpecialFolders& folders, const ShortcutStore& store)
      : workbench_(workbench), folders_(folders), store_(store) {}

  void Open(FoldersView& view);
  // A row of the upper list. Throws FileError.
  void OpenFolder(std::size_t row) const;
  // Its shortcuts are listed below.
  void ListFolder(FoldersView& view, std::size_t row);
  void PutFoldersIntoDocument(FoldersView& view);

  // The button CmdListShortcuts. Throws Interrupted.
  void List(FoldersView& view);
  void NewShortcut(FoldersView& view);
  // A row of the lower list.
  void EditShortcut(FoldersView& view, std::size_t row);
  // Opens the folder that the target lies in.
  void OpenTarget(std::size_t row) const;
  // The two ways to lead shortcuts right; what they would change is shown.
  void FindTargets(FoldersView& view);
  void ReplaceBeginning(FoldersView& view, const std::u16string& from, const std::u16string& to);
  // Writes what is shown, after a question, and leaves a text that takes it back.
  void Change(FoldersView& view);
  // Reads such a text.
  void TakeBack(FoldersView& view);
  void PutShortcutsIntoDocument(FoldersView& view);

 private:
  void Show(FoldersView& view, const std::u16string& remark);
  void Write(FoldersView& view, const std::vector<std::pair<std::filesystem::path, Shortcut>>& changes);
  void AskForShortcut(FoldersView& view, const ShortcutForm& form);

  Workbench& workbench_;
  const SpecialFolders& folders_;
  const ShortcutStore& store_;
  std::vector<SpecialFolder> listed_;
  ShortcutList list_;
};

}  // namespace scrivanta
