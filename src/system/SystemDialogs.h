// The windows of the system commands, as the handlers see them: Frm... classes on the real desktop, scripts in tests.
#pragma once

#include "text/Interface.h"

namespace scrivanta {

class FileTimesDialog;
class FoldersDialog;
class RegistryDialog;

class SystemDialogs : public Interface {
 public:
  // FrmFileTimes, modal: comes back when it is closed.
  virtual void ShowFileTimes(FileTimesDialog& dialog) = 0;
  // FrmRegistry, likewise.
  virtual void ShowRegistry(RegistryDialog& dialog) = 0;
  // FrmFolders, likewise.
  virtual void ShowFolders(FoldersDialog& dialog) = 0;
};

}  // namespace scrivanta
