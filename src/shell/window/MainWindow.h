// What the commands of the editor ask of the main window beyond the Workbench.
#pragma once

#include "shell/window/ColourChoice.h"
#include "text/Interface.h"

namespace scrivanta {

class EditBox;
class DocumentFile;
class KeyMap;

class MainWindow : public Interface {
 public:
  virtual EditBox& editBox() = 0;
  virtual DocumentFile& documentFile() = 0;
  virtual void KeepPlacement() = 0;
  // Shuts the program down once the command has ended, unless the user calls it off.
  virtual void RequestClose() = 0;
  virtual void SetWordWrap(bool wraps) = 0;
  virtual void SetZoom(int percent) = 0;
  virtual void SetLineNumbers(bool shown) = 0;
  virtual void SetColours(ColourChoice choice) = 0;
  virtual void SetKeys(const KeyMap& keys) = 0;
  // The menu of a panel of the status bar.
  virtual void OpenEncodingMenu() = 0;
  virtual void OpenLineEndsMenu() = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
};

}  // namespace scrivanta
