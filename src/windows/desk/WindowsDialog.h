// What FrmWindows does, without its window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "windows/desk/WindowLists.h"

namespace scrivanta {

// A row of the tree; what is in a window follows it, one deeper.
struct WindowRow {
  std::size_t depth = 0;
  std::u16string text;
  bool isOpen = false;  // what is in it is to be seen at once
};

struct ProcessRow {
  std::u16string name;
  std::u16string id;
  std::u16string memory;
  std::u16string windows;
  std::u16string path;
};

class WindowsView : public Interface {
 public:
  virtual std::u16string Filter() const = 0;  // TxtWindowFilter
  virtual void SetFilter(const std::u16string& filter) = 0;
  virtual bool WithHidden() const = 0;  // ChkHiddenWindows
  virtual void SetWithHidden(bool withHidden) = 0;
  virtual void ShowWindows(const std::vector<WindowRow>& rows) = 0;
  virtual void ShowProcesses(const std::vector<ProcessRow>& rows) = 0;
  virtual void ChooseWindow(std::size_t row) = 0;  // in the tree
  virtual void ShowDetails(const std::u16string& text) = 0;
  virtual std::u16string Text() const = 0;  // TxtWindowText
  virtual void ShowText(const std::u16string& text) = 0;
  virtual void ShowRemark(const std::u16string& text) = 0;
};

class WindowsDialog {
 public:
  WindowsDialog(Workbench& workbench, WindowDesk& desk) : workbench_(workbench), desk_(desk) {}

  // Reads what is there; what was chosen stays chosen. Opens the window, too.
  void Refresh(WindowsView& view);
  // The filter has changed.
  void Show(WindowsView& view);
  // A row of the tree was chosen.
  void Choose(WindowsView& view, std::size_t row);
  // The cross is dragged over the screen: tells what lies there.
  void Tell(WindowsView& view, ScreenPoint point);
  // The cross was dropped: what lies there is chosen, whatever the filter says.
  void ChooseAt(WindowsView& view, ScreenPoint point);

  // All of these are about the window that is chosen, and throw ExplainedError.
  void BringUp(WindowsView& view);
  void SetVisible(WindowsView& view, bool visible);
  void Move(WindowsView& view);
  void SwitchOnTop(WindowsView& view);
  void Close(WindowsView& view);
  void SetText(WindowsView& view);
  void PutTextIntoDocument(WindowsView& view);

  void EndProcess(WindowsView& view, std::size_t row);
  // What the lists show, as tables in place of the document's selection.
  void PutWindowsIntoDocument(WindowsView& view);
  void PutProcessesIntoDocument(WindowsView& view);

 private:
  void Read();
  std::optional<DeskWindow> WindowAt(ScreenPoint point) const;
  DeskWindow Chosen() const;
  DeskWindow ChosenOfOthers() const;
  void ShowChosen(WindowsView& view);
  void Change(WindowsView& view, const std::function<void()>& change, const std::u16string& remark);

  Workbench& workbench_;
  WindowDesk& desk_;
  DeskLists lists_;
  std::vector<ListedWindow> windows_;
  std::vector<std::size_t> processes_;
  std::optional<DeskWindow> chosen_;
};

}  // namespace scrivanta
