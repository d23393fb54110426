#include "system/FrmSystemDialogs.h"

#include "system/FrmFileTimes.h"
#include "system/folders/FrmFolders.h"
#include "system/registry/FrmRegistry.h"

namespace scrivanta {

void FrmSystemDialogs::ShowFileTimes(FileTimesDialog& dialog) {
  FrmFileTimes window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmSystemDialogs::ShowFolders(FoldersDialog& dialog) {
  FrmFolders window(host_, dialog);
  window.ShowModal(owner_());
}

void FrmSystemDialogs::ShowRegistry(RegistryDialog& dialog) {
  FrmRegistry window(host_, dialog);
  window.ShowModal(owner_());
}

}  // namespace scrivanta
