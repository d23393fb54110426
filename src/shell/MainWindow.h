// What the commands of the editor ask of the main window beyond the Workbench.
#pragma once

namespace scrivanta {

class RichBox;
class DocumentFile;

class MainWindow {
 public:
  MainWindow() = default;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  virtual ~MainWindow() = default;

  virtual RichBox& richBox() = 0;
  virtual DocumentFile& documentFile() = 0;
  virtual void KeepPlacement() = 0;
  // Shuts the program down once the command has ended, unless the user calls it off.
  virtual void RequestClose() = 0;
  virtual void SetWordWrap(bool wrap) = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
};

}  // namespace scrivanta
