// Takes out of a rich text what an edit control does not hold, see KeptParts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rtf/KeptParts.h"
#include "rtf/RtfTokens.h"

namespace scrivanta {

class PartTaker {
 public:
  // The head of the document is added to the last, unless that is null.
  PartTaker(KeptParts& parts, std::string_view rtf, KeptParts::Head* head)
      : parts_(parts), rtf_(rtf), head_(head), tokens_(rtf) {}

  std::string Take();

 private:
  // A field in whose text the taker is.
  struct Field {
    std::size_t depth;  // of the group that holds its text
    std::size_t end;    // of the field
    char16_t sign;      // at the end of its text; 0 for none
  };

  void LeaveForeignCharactersAlone();
  void TakeToken(const RtfToken& token);
  void TakeGroup(std::size_t begin);
  void TakeAlternative();
  void TakeField(std::size_t begin);
  void TakeWord(const RtfToken& word);
  void CloseGroup();
  void CopyGroup(std::size_t begin);
  void AddCompanions();
  void AddSign(char16_t sign);
  std::string_view GroupAt(std::size_t begin) const;
  static std::string_view TextOfField(std::string_view field);
  std::string UnicodeRule(int skipped) const;

  KeptParts& parts_;
  std::string_view rtf_;
  KeptParts::Head* head_;
  RtfTokens tokens_;
  std::string out_;
  std::size_t tables_ = 0;
  std::string companions_;  // what becomes a part when the text goes on
  std::vector<int> skippedAfterUnicode_ = {1};
  std::vector<Field> fields_;
  bool isInText_ = false;
};

}  // namespace scrivanta
