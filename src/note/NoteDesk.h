// The notes that are open, as each of them sees the others.
#pragma once

#include <string>
#include <vector>

#include "note/NoteStore.h"
#include "text/Interface.h"

namespace scrivanta {

class NoteDesk : public Interface {
 public:
  virtual std::vector<NoteEntry> Notes() const = 0;
  virtual std::size_t OpenCount() const = 0;
  virtual void ShowNew() = 0;
  // Opens the note, or brings its window to the front. Says so when another instance of the program has it.
  virtual void Show(const std::string& name) = 0;
};

}  // namespace scrivanta
