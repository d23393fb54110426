// The program, running on a thread of this process and driven through its windows as a person would drive it.
//
// What tells the program to do something returns when the program has done it, or waits for an answer. What reads waits
// for nothing. What is not as expected throws DriverFailure, which ends the test.
#pragma once

#include <windows.h>

#include <atomic>
#include <exception>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "shell/window/StatusPanels.h"
#include "shell/workbench/Prompts.h"
#include "window/driver/DialogDriver.h"
#include "window/driver/EditBoxDriver.h"
#include "window/driver/FileDialogDriver.h"
#include "window/driver/MessageBoxDriver.h"
#include "window/driver/MessageFence.h"

namespace scrivanta {

// An entry of the menu as the opened menu shows it.
struct ShownMenuEntry {
  std::u16string caption;
  bool enabled = false;
  bool checked = false;
};

class App {
 public:
  App() = default;
  App(const App&) = delete;
  App& operator=(const App&) = delete;
  // Ends the program, answering its questions with No. The process ends at once when that does not work.
  ~App();

  // Starts the program with what would follow its name on a command line. Returns when its window is ready, or asks
  // something.
  void Start(const std::u16string& commandLine = {});
  void Open(const std::filesystem::path& document);
  bool IsRunning() const { return running_; }
  // Closes the main window by its caption.
  void Close();
  // Waits until the program has ended; the exit code.
  int WaitForEnd();
  // Returns when the program has handled all it was told and waits for its user.
  void Settle();

  // Chooses a menu entry by the name of its control. Throws DriverFailure when it is disabled.
  void Menu(std::string_view controlName);
  // The same, and returns at once: for what lasts.
  void StartMenu(std::string_view controlName);
  ShownMenuEntry MenuEntry(std::string_view controlName) const;
  // Every caption of the menu, without its shortcut, in order: an entry of the bar is followed by those below it.
  std::vector<std::u16string> MenuCaptions() const;

  // Checks a message box; it is answered through what this returns.
  MessageBoxDriver ExpectBox(const Message& message);
  // Waits for an input box with prompt, title and preset text, and answers it. Empty: presses Cancel.
  void AnswerInput(const InputQuestion& question, std::u16string_view answer);
  DialogDriver ExpectDialog(std::u16string_view caption);
  // The window that offers to stop a command.
  DialogDriver ExpectInterruptWindow();
  FileDialogDriver ExpectFileDialog();
  void ChooseFile(const std::filesystem::path& file);
  void CancelFileDialog();
  // Waits for the dialog for choosing a folder, and chooses one.
  void ChooseFolder(const std::filesystem::path& chosen);

  HWND MainWindow() const;
  EditBoxDriver Editor() const;
  // What the program shows, waited for: it may come a moment after the command.
  void ExpectText(std::u16string_view text) const;
  void ExpectCaption(std::u16string_view caption) const;
  void ExpectStatus(std::u16string_view text) const;
  // The same behind the document's path, or what stands for it.
  void ExpectRemark(std::u16string_view remark) const;
  std::u16string Text() const { return Editor().Text(); }
  std::u16string Caption() const;
  std::u16string Status() const;
  // Nothing while the bar is hidden.
  std::optional<int> Progress() const;

  // Real keys; the window that has the focus gets them. The program is brought to the front first.
  void Press(std::string_view keys);
  void Type(std::u16string_view text);

  // One or several files at a time, on the edit box.
  void Drop(std::initializer_list<std::filesystem::path> files);
  void DropOn(HWND window, std::initializer_list<std::filesystem::path> files);
  // The same, and returns at once: for what lasts.
  void StartToDrop(const std::filesystem::path& file);
  void Minimise();
  // The window itself is asked, not a picture of the tray.
  bool HasTrayIcon() const;
  void ClickTrayIcon();
  // With the right button: opens a menu.
  void OpenTrayMenu();
  // A menu that opens at a place: waited for, and chosen from by the access key of the entry.
  void WaitForPopup() const;
  void ChooseInPopup(char16_t accessKey);

  // A panel of the status bar beside the path; a click on it that opens a menu, and one that does something else.
  std::u16string Panel(StatusPanel panel) const;
  void ExpectPanel(StatusPanel panel, std::u16string_view text) const;
  void ClickPanel(StatusPanel panel);
  void OpenPanelMenu(StatusPanel panel);

 private:
  bool HasQuestion() const;
  HWND FindMainWindow() const;
  void BringToFront() const;
  void DismissOne() const;
  std::u16string StatusPart(std::size_t part) const;
  void PostClickOn(StatusPanel panel) const;

  std::thread thread_;
  std::atomic<HWND> window_{nullptr};
  std::atomic<bool> running_{false};
  std::exception_ptr failure_;  // what the program's entry has thrown, once running_ is false
  int exitCode_ = -1;
  std::unique_ptr<MessageFence> fence_;
};

}  // namespace scrivanta
