// The progress bar while the document is saved.
#pragma once

#include "shell/document/DocumentFile.h"

namespace scrivanta {

// There for work that lasts; it would only flash for what is done in a moment. It goes whatever happens.
class SaveProgressBar {
 public:
  // The clock outlives the bar.
  SaveProgressBar(DocumentView& view, const std::function<DocumentFile::Time()>& now)
      : view_(view), now_(now), start_(now()) {}
  SaveProgressBar(const SaveProgressBar&) = delete;
  SaveProgressBar& operator=(const SaveProgressBar&) = delete;
  ~SaveProgressBar();

  void Show(int percent);

 private:
  DocumentView& view_;
  const std::function<DocumentFile::Time()>& now_;
  DocumentFile::Time start_;
  bool isShown_ = false;
};

}  // namespace scrivanta
