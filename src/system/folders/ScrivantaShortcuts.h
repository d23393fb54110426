// Shortcuts as the system's own object reads and writes them, and the folders that the system has names for.
#pragma once

#include "system/folders/FoldersDialog.h"

namespace scrivanta {

class ScrivantaShortcuts final : public ShortcutStore {
 public:
  Shortcut Read(const std::filesystem::path& file) const override;
  void Write(const std::filesystem::path& file, const Shortcut& shortcut) const override;
};

class ScrivantaSpecialFolders final : public SpecialFolders {
 public:
  std::vector<SpecialFolder> List() const override;
};

}  // namespace scrivanta
