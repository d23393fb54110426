#include "shell/document/SaveProgressBar.h"

namespace scrivanta {

SaveProgressBar::~SaveProgressBar() {
  if (isShown_) {
    view_.ShowProgressBar(std::nullopt);
  }
}

void SaveProgressBar::Show(int percent) {
  constexpr std::chrono::milliseconds kMoment{300};
  isShown_ = isShown_ || now_() - start_ >= kMoment;
  if (isShown_) {
    view_.ShowProgressBar(percent);
  }
}

}  // namespace scrivanta
