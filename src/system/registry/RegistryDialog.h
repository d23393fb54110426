// What FrmRegistry does, without its window.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "system/registry/RegistryChange.h"
#include "system/registry/RegistryData.h"
#include "system/registry/RegistryKeys.h"
#include "text/Interface.h"

namespace scrivanta {

// What FrmRegistryValue holds.
struct RegistryValueForm {
  std::u16string name;
  RegistryType type = RegistryType::kText;
  std::u16string data;
  bool isNew = true;  // else the name stays
};

// A row of the list: a value, or a key that a search has found.
struct RegistryListRow {
  std::u16string key;
  bool isKey = false;
  RegistryValue value;
};

class RegistryView : public Interface {
 public:
  virtual void ShowKey(const std::u16string& key) = 0;  // in the tree and above it
  virtual void ShowRows(const std::vector<RegistryListRow>& rows) = 0;
  virtual void ShowRemark(const std::u16string& text) = 0;
  // The keys below it are to be read again.
  virtual void Refresh(const std::u16string& key) = 0;
  // The form as the user has filled it; nothing when it was cancelled. The check throws what is wrong with it, and the
  // window stays open.
  virtual std::optional<RegistryValueForm> AskForValue(const RegistryValueForm& form,
                                                       const std::function<void(const RegistryValueForm&)>& check) = 0;
  // Shows what is going to be changed, and where the old values are kept.
  virtual bool Confirm(const std::vector<RegistryChangeRow>& rows) = 0;
};

class RegistryDialog {
 public:
  RegistryDialog(Workbench& workbench, RegistryKeys& keys) : workbench_(workbench), keys_(keys) {}

  const std::u16string& key() const noexcept { return key_; }
  // What a key holds, in natural order. Nothing for one that cannot be opened, and the remark says so.
  std::vector<std::u16string> Subkeys(RegistryView& view, const std::u16string& key) const;
  // Whether the tree is to show that there is something below.
  bool HasSubkeys(const std::u16string& key) const;

  // The window opens: the key of the selected text, or the one it was closed at.
  void Open(RegistryView& view);
  void Close();
  // A key was chosen in the tree.
  void Choose(RegistryView& view, const std::u16string& key);
  // The button CmdGoToKey. Throws ExplainedError when there is no such key.
  void GoTo(RegistryView& view, std::u16string_view text);
  // A row was opened: a value is changed, a key that was found is gone to.
  void OpenRow(RegistryView& view, std::size_t row);
  void NewValue(RegistryView& view);
  void DeleteValue(RegistryView& view, std::size_t row);
  void NewKey(RegistryView& view);
  void DeleteKey(RegistryView& view);
  void Search(RegistryView& view, const std::u16string& what);
  void Export(RegistryView& view);
  void Import(RegistryView& view);
  // Reads one of the files that changes leave.
  void TakeBack(RegistryView& view);
  void OpenInEditor();
  // The rows as a table, in place of the document's selection.
  void PutIntoDocument(RegistryView& view);

 private:
  void ShowValues(RegistryView& view);
  void Change(RegistryView& view, const std::vector<RegistryChange>& changes);
  void Read(RegistryView& view, const std::filesystem::path& initialFolder);
  void AskForValue(RegistryView& view, const std::u16string& key, const RegistryValueForm& form);

  Workbench& workbench_;
  RegistryKeys& keys_;
  std::u16string key_;
  std::vector<RegistryListRow> rows_;
};

}  // namespace scrivanta
