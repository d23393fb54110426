// The folder of the notes: a file a note, put in place in one step.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "note/Note.h"
#include "text/FileClaim.h"

namespace scrivanta {

struct NoteEntry {
  std::string name;
  std::u16string title;
  bool isOpen = false;
};

class NoteStore {
 public:
  // The folder is made when the first note is kept.
  explicit NoteStore(std::filesystem::path folder) : folder_(std::move(folder)) {}

  // The oldest first; a file that cannot be read is not listed.
  std::vector<NoteEntry> List() const;
  // A name that no note has, later in the order than those there are.
  std::string NewName() const;
  // Null while another window, of whatever instance of the program, has the note. Throws FileError.
  std::unique_ptr<FileClaim> Claim(const std::string& name) const;
  bool Has(const std::string& name) const;
  // A new note when there is no file. Throws FileError.
  Note Read(const std::string& name) const;
  void Write(const std::string& name, const Note& note) const;
  void Remove(const std::string& name) const;

 private:
  std::filesystem::path PathOf(const std::string& name) const;
  void MakeFolder() const;

  std::filesystem::path folder_;
};

}  // namespace scrivanta
