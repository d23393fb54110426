// The ini file on the disk. Each call reads it anew, for another instance or a person may have changed it meanwhile.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "shell/workbench/Settings.h"

namespace scrivanta {

class IniFile {
 public:
  // While the file does not exist, it has the content of the initial one, if there is such.
  explicit IniFile(std::filesystem::path path, std::filesystem::path initial = {})
      : path_(std::move(path)), initial_(std::move(initial)) {}

  // The one in the program folder; where this may not be written, one of the same name below the application data of
  // the user, which begins with what the program folder holds.
  static IniFile Locate(const std::filesystem::path& programFolder, const std::filesystem::path& programName,
                        const std::filesystem::path& applicationData);

  const std::filesystem::path& path() const noexcept { return path_; }

  // Nothing when the entry is absent. Throws FileError.
  std::optional<std::u16string> Read(std::u16string_view section, std::u16string_view key) const;
  // All entries of the section. Throws FileError.
  SettingEntries ReadAll(std::u16string_view section) const;
  // Replaces the file in one step, unless it holds the value already; it keeps its encoding, and a new one is in GBK.
  // Instances that write at the same time wait for each other. Throws FileError.
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value);
  // As Write, for many entries at once.
  void WriteAll(std::u16string_view section, const SettingEntries& entries);

 private:
  std::string ReadBytes() const;

  std::filesystem::path path_;
  std::filesystem::path initial_;
};

}  // namespace scrivanta
