#include "contacts/CardFiles.h"

namespace scrivanta {

std::optional<Contact> CardFilesSource::Next() {
  for (;;) {
    if (cards_ == nullptr) {
      if (next_ == files_.size()) {
        return std::nullopt;
      }
      bytes_ = std::make_unique<FileSource>(files_[next_]);
      cards_ = std::make_unique<CardContactSource>(*bytes_, progress_);
    }
    if (std::optional<Contact> contact = cards_->Next()) {
      return contact;
    }
    CloseFile();
  }
}

void CardFilesSource::CloseFile() {
  for (const NotUnderstood& place : cards_->notUnderstood()) {
    notUnderstood_.push_back({files_[next_], place});
  }
  cards_.reset();
  bytes_.reset();
  ++next_;
}

}  // namespace scrivanta
