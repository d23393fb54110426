// The main window: start-up, menu, layout, keys, tray icon and shut-down. It is the workbench of the commands, on real
// controls.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/document/DocumentFile.h"
#include "shell/document/DocumentRecovery.h"
#include "shell/window/FormatChoices.h"
#include "shell/window/FrmMainBars.h"
#include "shell/window/FrmMainBusy.h"
#include "shell/window/FrmMainClosing.h"
#include "shell/window/FrmMainEditor.h"
#include "shell/window/FrmMainKeys.h"
#include "shell/window/FrmMainLineNumbers.h"
#include "shell/window/FrmMainLook.h"
#include "shell/window/FrmMainMenuBar.h"
#include "shell/window/FrmMainPrompts.h"
#include "shell/window/FrmMainTray.h"
#include "shell/window/MainWindow.h"
#include "shell/window/MenuChoice.h"
#include "shell/window/Options.h"
#include "shell/window/ScrivantaDesktop.h"
#include "shell/window/StatusPanels.h"
#include "shell/window/WindowWork.h"
#include "shell/workbench/CommandTable.h"
#include "win/Subclass.h"
#include "win/Window.h"

namespace scrivanta {

inline constexpr wchar_t kMainWindowClass[] = L"ScrivantaMain";
inline constexpr char16_t kProgramTitle[] = u"Scrivanta";

class FrmMain final : public Window, public Workbench, public MainWindow, private DocumentView {
 public:
  FrmMain(WindowHost& host, Folders folders, Settings& settings, const RegExpEngine& regExpEngine,
          const CommandTable& commands);

  // Makes the window, shows it and opens the document of the command line, or the one that the options name when the
  // command line is empty.
  void Open(std::u16string_view commandLine);

  // Another window after each change of the whole text.
  HWND editBoxHandle() const noexcept { return editor_.box(); }

  Editor& editor() override { return editor_; }
  Document& document() override { return documentFile_; }
  Prompts& prompts() override { return prompts_; }
  Settings& settings() override { return settings_; }
  Desktop& desktop() override { return desktop_; }
  const Clock& clock() const override { return clock_; }
  const Folders& folders() const override { return folders_; }
  const RegExpEngine& regExpEngine() const override { return regExpEngine_; }
  std::unique_ptr<BusyWork> StartWork() override { return work_.Start(); }
  void ShowStatus(const std::u16string& text) override;

  EditBox& editBox() override { return editor_; }
  DocumentFile& documentFile() override { return documentFile_; }
  void KeepPlacement() override;
  void RequestClose() override;
  void SetWordWrap(bool wraps) override { editor_.SetWordWrap(wraps); }
  void SetZoom(int percent) override { editor_.SetZoom(percent); }
  void SetLineNumbers(bool shown) override;
  void SetColours(ColourChoice choice) override;
  void SetKeys(const KeyMap& keys) override { menuBar_.SetKeys(keys); }
  void OpenEncodingMenu() override { OpenPanelMenu(StatusPanel::kEncoding, EncodingChoices(documentFile_)); }
  void OpenLineEndsMenu() override { OpenPanelMenu(StatusPanel::kLineEnds, LineEndChoices(documentFile_)); }
  void Undo() override { editor_.Undo(); }
  void Redo() override { editor_.Redo(); }

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> OnStateMessage(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> OnEditBoxMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnCommand(int id, int notification);
  void OnNotify(const NMHDR& notification);
  void OnStatusClick(std::size_t part);
  void OpenPanelMenu(StatusPanel panel, const std::vector<MenuChoice>& choices);
  void OnSize(WPARAM kind);
  void HandFocusOn();
  void OnDrop(HDROP drop);
  void OnTimer(UINT_PTR timer);
  void OnSnapshotTimer();
  void LookAtFileSoon(bool isActivated);
  void OnLookAtFile();

  void ShowDocument(std::u16string_view text) override { editor_.ShowDocument(text); }
  bool ShowRichDocument(std::string_view rtf) override { return editor_.ShowRichDocument(rtf); }
  void ReplaceText(std::u16string_view text, std::function<void(bool isUndone)> onUndo) override {
    editor_.ReplaceText(text, std::move(onUndo));
  }
  std::string DocumentRtf() const override { return editor_.DocumentRtf(); }
  std::u16string PlainText() const override { return editor_.PlainText(); }
  bool ReplaceByRtf(std::string_view rtf) override { return editor_.ReplaceByRtf(rtf); }
  bool HasFormatting() const override { return editor_.HasFormatting(); }
  std::optional<std::u16string> TextOfRtf(std::string_view rtf) override { return editor_.TextOfRtf(rtf); }
  void SetReadOnly(bool readOnly) override { editor_.SetReadOnly(readOnly); }
  void NoteChanged(bool isChanged) override;
  void ShowPath(const std::filesystem::path& path) override;
  void NoteUse(const std::filesystem::path& path) override;
  void ShowNotice(const std::u16string& notice) override { bars_.SetNotice(notice); }
  void ShowProgressBar(std::optional<int> percent) override { bars_.ShowProgress(percent); }

  void MakeControls();
  void TakeUpEditBox();
  // Colours, fonts or the resolution of the screen are others now.
  void RefreshLook(UINT dotsPerInch);
  void OnSettingChange();
  void TellControls(UINT message, WPARAM wParam, LPARAM lParam) const;
  // How the window is to be shown first (SW_SHOW).
  int RestoreSettings(const Options& options);
  void RunCommand(int commandId);
  bool TakeEnter();
  // Runs what is no command of the menu; whatever it throws becomes one message box. False when it has thrown.
  bool RunGuarded(const std::function<void()>& action);
  void LayOut();
  void RefreshPanels();
  void RefreshState();
  void HandleEditorChange();
  void HandleEditorSelection();
  void HandleLostFormats();
  WorkbenchState State() const;
  HWND PromptOwner() const;

  Settings& settings_;
  const RegExpEngine& regExpEngine_;
  const CommandTable& commands_;
  HICON icon_;
  WindowClass windowClass_;
  UINT taskbarCreated_;
  Folders folders_;
  ScrivantaClock clock_;
  ScrivantaDesktop desktop_;
  FrmMainPrompts prompts_;
  FrmMainBars bars_;
  FrmMainLook look_;
  FrmMainEditor editor_;
  FrmMainLineNumbers lineNumbers_;
  FrmMainKeys keys_;
  FrmMainTray tray_;
  StatusPanels panels_;
  FrmMainBusy busy_;
  WindowWork work_{busy_, clock_};
  DocumentFile documentFile_{*this, *this};
  DocumentRecovery recovery_{*this, documentFile_};
  FrmMainClosing closing_{
      prompts_,  work_,
      busy_,     documentFile_,
      recovery_, {[this] { KeepPlacement(); }, [this](const std::function<void()>& action) { RunGuarded(action); }}};
  FrmMainMenuBar menuBar_{host(),    settings_,
                          commands_, documentFile_,
                          prompts_,  {[this] { return State(); }, [this](int commandId) { OnCommand(commandId, 0); }}};
  std::optional<Subclass> editBoxMessages_;
  std::u16string untitledCaption_;
  bool areFormatsLost_ = false;  // by what changed the document last
};

}  // namespace scrivanta
