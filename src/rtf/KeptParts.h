// What rich texts hold and an edit control does not (Rich Text Format 1.9): pictures, objects, notes, comments, fields
// such as links, page breaks; and of a document its styles, its page, headers and footers. A control drops them, or the
// text in them, or ends there what it writes; so they never reach it. In the place of each stands a sign, a character
// of private use, which stands for it wherever it goes: edits, commands and undo take it along like any character.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rtf/RtfTables.h"

namespace scrivanta {

class KeptParts {
 public:
  // What a document has but once. Empty for one without.
  struct Head {
    std::string rtf;
    std::size_t tables = 0;
  };

  // The rich text as it goes to the control.
  std::string TakeOut(std::string_view rtf);
  // The same of a whole document, whose head takes the place of the one before.
  std::string TakeOutDocument(std::string_view rtf);

  // What the control gives, with each thing in the place of its sign. A field whose beginning or end is not there any
  // more is the text in it.
  std::string PutBack(std::string_view rtf) const { return PutBack(rtf, {}); }
  std::string PutBackDocument(std::string_view rtf) const { return PutBack(rtf, head_); }

  const Head& head() const noexcept { return head_; }
  void SetHead(Head head) { head_ = std::move(head); }

  // Characters of a text of its own, where parts are to be put in: they are not taken for signs.
  void LeaveAlone(std::u16string_view text);
  bool empty() const noexcept { return parts_.empty(); }
  bool HasSigns(std::u16string_view text) const;
  std::u16string WithoutSigns(std::u16string_view text) const;

  // Whether there were more things than signs for them.
  bool ranOut() const noexcept { return ranOut_; }

 private:
  friend class PartTaker;
  friend class PartReturner;

  struct Part {
    std::string rtf;
    std::size_t tables = 0;  // whose numbers it has
    char16_t end = 0;        // of the beginning of a field: the sign at its end
    bool isEnd = false;      // of a field

    auto operator<=>(const Part&) const = default;
  };

  std::string PutBack(std::string_view rtf, const Head& head) const;
  std::size_t AddTables(RtfTables tables);
  // 0 when there are no signs left.
  char16_t SignFor(Part part);

  std::vector<RtfTables> tables_;
  std::map<char16_t, Part> parts_;
  std::map<Part, char16_t> signs_;
  std::set<char16_t> foreign_;  // characters of texts themselves
  char16_t next_ = 0xE900;
  Head head_;
  bool ranOut_ = false;
};

}  // namespace scrivanta
