#include "system/UndoFiles.h"

#include "text/AtomicFile.h"
#include "text/DateTimeText.h"
#include "text/DecimalText.h"

namespace scrivanta {

// A name of its own, so that every change can be taken back.
std::filesystem::path WriteUndoFile(Workbench& workbench, std::u16string_view what, std::u16string_view extension,
                                    std::string_view bytes) {
  const std::filesystem::path folder = UndoFolder(workbench.folders());
  std::filesystem::create_directories(folder);
  const auto now = workbench.clock().Now();
  std::u16string time = TimeText(now);
  std::erase(time, u':');
  const std::u16string name = std::u16string(what) + u" " + DateText(now) + u" " + time;
  std::filesystem::path file = folder / (name + std::u16string(extension));
  for (int number = 2; std::filesystem::exists(file); ++number) {
    file = folder / (name + u" " + DecimalText(number) + std::u16string(extension));
  }
  ReplaceFileContent(file, bytes);
  return file;
}

}  // namespace scrivanta
