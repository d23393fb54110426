#include "note/FrmNotes.h"

#include <algorithm>

namespace scrivanta {

FrmNotes::~FrmNotes() {
  for (const std::unique_ptr<FrmNote>& note : open_) {
    note->CloseWithProgram();
  }
}

void FrmNotes::Use(Workbench& workbench) {
  workbench_ = &workbench;
  if (!store_) {
    store_ = std::make_unique<NoteStore>(workbench.folders().notes);
  }
}

void FrmNotes::mnuNote(Workbench& workbench) {
  Use(workbench);
  const std::vector<NoteEntry> notes = Notes();
  for (const NoteEntry& entry : notes) {
    if (entry.isOpen && Find(entry.name) == nullptr) {
      Open(entry.name);
    }
  }
  if (FrmNote* last = Last()) {
    last->Show();
  } else if (notes.empty() || !Open(notes.back().name)) {
    ShowNew();
  }
}

void FrmNotes::mnuSelectionToNote(Workbench& workbench) {
  const std::u16string text = workbench.editor().SelectedText();
  if (text.empty()) {
    workbench.prompts().Ask({.text = u"没有选中的文字！", .icon = Icon::kInformation});
    return;
  }
  if (Last() == nullptr) {
    mnuNote(workbench);
  }
  Last()->TakeText(text);
}

std::size_t FrmNotes::OpenCount() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(open_, [](const std::unique_ptr<FrmNote>& note) { return note->Name().has_value(); }));
}

void FrmNotes::ShowNew() {
  Open(store_->NewName());
}

void FrmNotes::Show(const std::string& name) {
  if (FrmNote* note = Find(name)) {
    note->Show();
  } else if (!Open(name)) {
    workbench_->prompts().Ask({.text = u"这张便笺正在另一个窗口里打开着。", .icon = Icon::kInformation});
  }
}

// False when somebody else has the note.
bool FrmNotes::Open(const std::string& name) {
  std::unique_ptr<FileClaim> claim = store_->Claim(name);
  if (!claim) {
    return false;
  }
  // Never the one that has asked for this: it is open.
  std::erase_if(open_, [](const std::unique_ptr<FrmNote>& note) { return !note->Name(); });
  open_.push_back(std::make_unique<FrmNote>(
      windows_, *workbench_, *this, std::make_unique<NoteDialog>(*workbench_, *store_, name, std::move(claim))));
  open_.back()->Show();
  return true;
}

FrmNote* FrmNotes::Find(const std::string& name) const {
  const auto found =
      std::ranges::find_if(open_, [&name](const std::unique_ptr<FrmNote>& note) { return note->Name() == name; });
  return found == open_.end() ? nullptr : found->get();
}

FrmNote* FrmNotes::Last() const {
  const auto found =
      std::find_if(open_.rbegin(), open_.rend(), [](const std::unique_ptr<FrmNote>& note) { return note->IsOpen(); });
  return found == open_.rend() ? nullptr : found->get();
}

}  // namespace scrivanta
