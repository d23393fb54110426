#include "window/driver/LeftBehind.h"

#include <filesystem>

#include "search/UndoFileReplace.h"
#include "shell/window/ScrivantaDesktop.h"
#include "text/Bytes.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

std::filesystem::path RecoveryFolder() {
  return FindFolders(FindIniFile()).recovery;
}

}  // namespace

std::optional<Snapshot> NewestSnapshot() {
  std::optional<Snapshot> newest;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(RecoveryFolder(), error), end; !error && entry != end;
       entry.increment(error)) {
    try {
      std::optional<Snapshot> found = ReadSnapshot(ReadWholeFile(entry->path() / L"Document.snapshot"));
      if (found && (!newest || newest->taken < found->taken)) {
        newest = std::move(found);
      }
    } catch (const FileError&) {
      continue;  // none yet
    }
  }
  return newest;
}

Snapshot WaitForSnapshot() {
  return *WaitFor("a snapshot of the document", &NewestSnapshot);
}

Message QuestionAboutLeftBehind(const Snapshot& snapshot) {
  const std::u16string name = snapshot.path.empty() ? u"（还没有名字的文档）" : snapshot.path.u16string();
  return {.text = u"上次没有正常结束，这个文档有改动没有存盘：\n" + name + u"\n" + snapshot.taken + u"\n“" +
                  snapshot.text.substr(0, snapshot.text.find(u'\r')) +
                  u"”\n\n“是”：恢复\n“否”：丢弃这些改动\n“取消”：先留着，下次启动再问",
          .buttons = Buttons::kYesNoCancel,
          .icon = Icon::kQuestion};
}

void ForgetSnapshots() {
  std::error_code inUse;
  for (const auto& folder : std::filesystem::directory_iterator(RecoveryFolder(), inUse)) {
    std::filesystem::remove_all(folder.path(), inUse);
  }
}

std::filesystem::path NotesFolder() {
  return FindFolders(FindIniFile()).notes;
}

void ForgetNotes() {
  std::error_code inUse;
  std::filesystem::remove_all(NotesFolder(), inUse);
}

void ForgetReplacedFiles() {
  std::error_code error;
  std::filesystem::remove_all(KeptFolder(FindFolders(FindIniFile())), error);
}

}  // namespace scrivanta
