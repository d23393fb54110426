#include "note/NoteStore.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

namespace fs = std::filesystem;

constexpr char kExtension[] = ".note";
constexpr char kInUse[] = ".inuse";
constexpr std::size_t kDigits = 6;

}  // namespace

std::vector<NoteEntry> NoteStore::List() const {
  std::vector<NoteEntry> entries;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (entry->path().extension() != kExtension) {
      continue;
    }
    const std::string name = entry->path().stem().string();
    try {
      const Note note = Read(name);
      entries.push_back({.name = name, .title = TitleOfNote(note.text), .isOpen = note.look.isOpen});
    } catch (const FileError&) {
      continue;  // another program has it just now
    }
  }
  std::ranges::sort(entries, {}, &NoteEntry::name);
  return entries;
}

std::string NoteStore::NewName() const {
  unsigned last = 0;
  std::error_code error;
  // Those that are new and not kept yet have a claim.
  for (fs::directory_iterator entry(folder_, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    const std::string name = entry->path().stem().string();
    unsigned number = 0;
    std::from_chars(name.data(), name.data() + name.size(), number);
    last = std::max(last, number);
  }
  const std::string digits = std::to_string(last + 1);
  return std::string(digits.size() < kDigits ? kDigits - digits.size() : 0, '0') + digits;
}

std::unique_ptr<FileClaim> NoteStore::Claim(const std::string& name) const {
  MakeFolder();
  return FileClaim::Take(folder_ / (name + kInUse));
}

bool NoteStore::Has(const std::string& name) const {
  std::error_code error;
  return fs::exists(PathOf(name), error);
}

Note NoteStore::Read(const std::string& name) const {
  return Has(name) ? ReadNote(ReadWholeFile(PathOf(name))) : Note{};
}

void NoteStore::Write(const std::string& name, const Note& note) const {
  MakeFolder();
  ReplaceFileContent(PathOf(name), BytesOfNote(note));
}

void NoteStore::Remove(const std::string& name) const {
  std::error_code error;
  fs::remove(PathOf(name), error);
  if (error) {
    throw FileError(PathOf(name), error);
  }
}

fs::path NoteStore::PathOf(const std::string& name) const {
  return folder_ / (name + kExtension);
}

void NoteStore::MakeFolder() const {
  std::error_code error;
  fs::create_directories(folder_, error);
  if (error) {
    throw FileError(folder_, error);
  }
}

}  // namespace scrivanta
