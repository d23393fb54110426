// Puts parts back into a rich text that an edit control has written, see KeptParts.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rtf/KeptParts.h"
#include "rtf/RtfTables.h"
#include "rtf/RtfTokens.h"

namespace scrivanta {

class PartReturner {
 public:
  PartReturner(const KeptParts& parts, std::string_view rtf) : parts_(parts), rtf_(rtf), tables_(ReadRtfTables(rtf)) {}

  std::string PutBack(const KeptParts::Head& head);

 private:
  // Behind the tables of fonts and colours, or where they would stand.
  std::size_t EndOfTables() const;
  void PairFields(std::size_t begin);
  const KeptParts::Part* PartOf(const RtfToken& token) const;
  void Return(std::size_t begin);
  void ReturnPart(const KeptParts::Part& part, std::size_t place);
  void ReturnToken(const RtfToken& token);
  // With the numbers that its fonts and colours have in the whole.
  std::string Renumbered(std::string_view rtf, std::size_t tables);
  int FontNumber(std::size_t tables, int number);
  int ColourNumber(std::size_t tables, int number);
  std::string TablesWithNewEntries(std::size_t end) const;

  const KeptParts& parts_;
  std::string_view rtf_;
  RtfTables tables_;
  std::string out_;
  std::set<std::size_t> fieldEnds_;   // the places of signs that have their other one
  std::vector<std::string> changes_;  // of the format, in the fields that are open
  std::map<std::pair<std::size_t, int>, int> fonts_;
  std::map<std::pair<std::size_t, int>, int> colours_;
  std::string newFonts_;
  std::string newColours_;
};

}  // namespace scrivanta
