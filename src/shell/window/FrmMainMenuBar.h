// The menu bar of the main window at work: its keys, what is grey and why, the documents used last, and the menu of the
// edit box, which holds commands of the bar.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/document/DocumentFile.h"
#include "shell/window/KeyMap.h"
#include "shell/window/MenuChoice.h"
#include "shell/window/RecentCommands.h"
#include "shell/window/RecentDocuments.h"
#include "shell/workbench/CommandTable.h"
#include "shell/workbench/Prompts.h"
#include "win/WindowHost.h"

namespace scrivanta {

class FrmMainMenuBar {
 public:
  // What the bar needs of the window.
  struct Window {
    std::function<WorkbenchState()> state;
    std::function<void(int commandId)> onCommand;
  };

  FrmMainMenuBar(WindowHost& host, Settings& settings, const CommandTable& commands, DocumentFile& document,
                 Prompts& prompts, Window window);

  void Create(HWND window);
  void SetKeys(const KeyMap& keys);

  // Gives the entries the state they have now; Follow does nothing where that is the one they have been given last.
  void Refresh();
  void Follow();
  // A menu of the bar is about to be opened.
  void HandleOpening(HMENU popup);
  // About the entry that WM_MENUSELECT tells of; empty when it can be chosen.
  std::u16string HintOf(WPARAM selected) const;

  // Whether a command is one of the documents used last; such a one is run.
  bool IsRecent(int commandId) const;
  void RunRecent(int commandId) const;
  void NoteCommand(std::string_view controlName) { recentCommands_.Note(controlName); }
  void NoteDocument(const std::filesystem::path& path) { recentDocuments_.Note(path); }

  // `place` is that of WM_CONTEXTMENU.
  void OpenInEditBox(HWND box, LPARAM place) const;

 private:
  HMENU FileMenu() const;

  WindowHost& host_;
  const CommandTable& commands_;
  DocumentFile& document_;
  Prompts& prompts_;
  Window surroundings_;
  KeyMap keys_;
  RecentDocuments recentDocuments_;
  RecentCommands recentCommands_;
  HWND window_ = nullptr;
  std::vector<MenuChoice> recentChoices_;
  int ownFileEntries_ = 0;
  std::optional<WorkbenchState> shownState_;
};

}  // namespace scrivanta
