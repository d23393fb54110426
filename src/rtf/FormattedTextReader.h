// Reads a rich text into a FormattedText.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "rtf/FormattedText.h"
#include "rtf/RtfReader.h"

namespace scrivanta {

class FormattedTextReader final : public RtfSink {
 public:
  explicit FormattedTextReader(std::string_view rtf);

  // Nothing when there was something that has no place in it.
  std::optional<FormattedText> Take();

  void TakeUnit(const RtfUnit& unit) override;
  void DropLastLineBreak() override;
  void TakeWord(std::string_view name, std::optional<int> number) override;
  void OpenGroup() override;
  void CloseGroup() override;
  void TakeDestination(std::string_view name) override;

 private:
  // What is as before when a group ends. The formats are kept as what they are shared as from the first character on.
  struct State {
    FormatWords characters;
    FormatWords paragraph;
    SharedFormat sharedCharacters;
    SharedFormat sharedParagraph;
  };

  void ReadFonts(std::string_view group);
  void ReadColours(std::string_view group);
  SharedFormat Shared(const FormatWords& words);
  static void Set(FormatWords& words, std::string_view key, std::string value);
  static void Clear(FormatWords& words, std::string_view key);
  void TakeCharacterWord(std::string_view key, std::string_view name, std::optional<int> number);
  void TakeParagraphWord(std::string_view key, std::string_view name, std::optional<int> number);
  SharedFormat ParagraphNow();

  std::map<int, std::string> fonts_;
  std::vector<std::string> colours_;
  int defaultFont_ = 0;
  State state_;
  std::vector<State> outer_;
  std::map<FormatWords, SharedFormat> known_;
  std::u16string text_;
  TextFormats formats_;
  bool isWhole_ = true;
};

}  // namespace scrivanta
