// The desktop, the clock and the folders as commands see them.
#pragma once

#include "shell/settings/IniFile.h"
#include "shell/workbench/Workbench.h"

namespace scrivanta {

class ScrivantaDesktop final : public Desktop {
 public:
  void OpenWithDefaultProgram(const std::filesystem::path& document) override;
  void Run(const std::u16string& program, const std::u16string& arguments) override;
  void RunSystemProgram(const std::u16string& fileName, const std::u16string& arguments) override;
  // Puts a document into the system's list of those used lately.
  void NoteRecentDocument(const std::filesystem::path& document);
};

class ScrivantaClock final : public Clock {
 public:
  // The time of the wall, in the zone that the system is set to.
  std::chrono::local_time<std::chrono::milliseconds> Now() const override;
};

// The ini file of the running program.
IniFile FindIniFile();
// The folders as the running program finds them.
Folders FindFolders(const IniFile& iniFile);

}  // namespace scrivanta
