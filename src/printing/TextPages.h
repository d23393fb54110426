// A plain text in lines and pages as wide and as long as the paper allows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/Interface.h"
#include "text/Progress.h"

namespace scrivanta {

// How much of a text fits into the width of a page: the font of the device decides.
class LineMeasure : public Interface {
 public:
  // How many UTF-16 code units, of a text without line breaks and tabs.
  virtual std::size_t FittingUnits(std::u16string_view text) const = 0;
};

class TextPages {
 public:
  // The document text, lines separated by CR LF. The measure is kept.
  TextPages(std::u16string text, const LineMeasure& measure, std::size_t linesOfPage);

  // Finds where the pages begin; before that there are none.
  void LayOut(Progress& progress);

  std::size_t pageCount() const noexcept { return starts_.size(); }
  // As they are drawn, tabs as blanks. Blanks at the end of a line may reach beyond the width.
  std::vector<std::u16string> LinesOf(std::size_t page) const;

 private:
  struct Line {
    std::u16string shown;
    std::size_t next = 0;  // where the next line begins in the text
  };

  Line LineAt(std::size_t position) const;

  std::u16string text_;
  const LineMeasure& measure_;
  std::size_t linesOfPage_;
  std::vector<std::size_t> starts_;
};

}  // namespace scrivanta
