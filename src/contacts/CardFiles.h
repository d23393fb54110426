// The contacts of several card files, one file behind the other.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "contacts/CardContacts.h"
#include "text/Bytes.h"

namespace scrivanta {

struct NotUnderstoodInFile {
  std::filesystem::path file;
  NotUnderstood place;
};

class CardFilesSource final : public ContactSource {
 public:
  // Appends what is not understood, file by file, as they come to their ends.
  CardFilesSource(std::vector<std::filesystem::path> files, Progress& progress,
                  std::vector<NotUnderstoodInFile>& notUnderstood)
      : files_(std::move(files)), progress_(progress), notUnderstood_(notUnderstood) {}

  std::optional<Contact> Next() override;

 private:
  void CloseFile();

  std::vector<std::filesystem::path> files_;
  Progress& progress_;
  std::vector<NotUnderstoodInFile>& notUnderstood_;
  std::size_t next_ = 0;  // of the files
  std::unique_ptr<FileSource> bytes_;
  std::unique_ptr<CardContactSource> cards_;
};

}  // namespace scrivanta
