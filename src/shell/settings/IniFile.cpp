#include "shell/settings/IniFile.h"

#include <system_error>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/DocumentFormat.h"
#include "text/IniText.h"
#include "text/InterprocessLock.h"
#include "text/PlatformFile.h"
#include "text/TemporaryName.h"

namespace scrivanta {
namespace {

// One for all ini files: they are written seldom.
constexpr std::string_view kLockName = "ini";

bool IsMissing(const FileError& error) {
  return error.code() == std::errc::no_such_file_or_directory || error.code() == std::errc::not_a_directory;
}

// To replace a file in one step takes making another one beside it.
bool CanBeReplaced(const std::filesystem::path& path) {
  if (InspectReplaceTarget(path).refusal) {
    return false;
  }
  const std::filesystem::path trial = path.parent_path() / TemporaryName();
  if (FileHandle(OpenFile(trial, OpenMode::kCreate)) == nullptr) {
    return false;
  }
  RemoveFile(trial);
  return true;
}

// In the encoding of the file, unless it would be taken for another one with what it holds now.
std::string Encoded(const std::u16string& text, DocumentFormat format) {
  std::string bytes = EncodeDocument(text, format);
  if (DecodeAsItStands(bytes).text != text) {
    format.encoding = DocumentEncoding::kUtf8WithMark;
    bytes = EncodeDocument(text, format);
  }
  return bytes;
}

}  // namespace

IniFile IniFile::Locate(const std::filesystem::path& programFolder, const std::filesystem::path& programName,
                        const std::filesystem::path& applicationData) {
  std::filesystem::path name = programName;
  name += ".ini";
  std::filesystem::path own = programFolder / name;
  return CanBeReplaced(own) ? IniFile(own) : IniFile(applicationData / programName / name, own);
}

std::string IniFile::ReadBytes() const {
  for (const std::filesystem::path& path : {path_, initial_}) {
    try {
      if (!path.empty()) {
        return ReadWholeFile(path);
      }
    } catch (const FileError& error) {
      if (!IsMissing(error)) {
        throw;
      }
    }
  }
  return {};
}

std::optional<std::u16string> IniFile::Read(std::u16string_view section, std::u16string_view key) const {
  const InterprocessLock lock(kLockName);
  return IniText(DecodeAsItStands(ReadBytes()).text).Find(section, key);
}

SettingEntries IniFile::ReadAll(std::u16string_view section) const {
  const InterprocessLock lock(kLockName);
  return IniText(DecodeAsItStands(ReadBytes()).text).Entries(section);
}

void IniFile::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  WriteAll(section, {{std::u16string(key), std::u16string(value)}});
}

void IniFile::WriteAll(std::u16string_view section, const SettingEntries& entries) {
  const InterprocessLock lock(kLockName);
  DecodedDocument file = DecodeAsItStands(ReadBytes());
  IniText text(std::move(file.text));
  bool changed = false;
  for (const auto& [key, value] : entries) {
    if (text.Find(section, key) != value) {
      text.Set(section, key, value);
      changed = true;
    }
  }
  if (!changed) {
    return;
  }
  std::error_code cannotBeMade;  // which writing reports
  std::filesystem::create_directories(path_.parent_path(), cannotBeMade);
  ReplaceFileContent(path_, Encoded(text.text(), file.format));
}

}  // namespace scrivanta
