// Reads the bytes of a rich text and tells what is in them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "text/Interface.h"

namespace scrivanta {

// One code unit of the document's text, and where it stands.
struct RtfUnit {
  char16_t unit = 0;
  std::size_t begin = 0;  // bytes
  std::size_t end = 0;
  bool isChineseCharset = true;
  std::uint32_t skippedAfterUnicode = 1;
};

// Told of everything in the order of the bytes.
class RtfSink : public Interface {
 public:
  // A line break is two, CR and LF.
  virtual void TakeUnit(const RtfUnit& unit) = 0;
  // The line break that was taken last is none of the document's.
  virtual void DropLastLineBreak() = 0;
  // Where text may stand: a control word that is no text itself; and the groups, whatever is in them.
  virtual void TakeWord(std::string_view, std::optional<int>) {}
  virtual void OpenGroup() {}
  virtual void CloseGroup() {}
  // What begins here holds no text of the document.
  virtual void TakeDestination(std::string_view) {}
};

class RtfReader {
 public:
  RtfReader(std::string_view rtf, RtfSink& out) : rtf_(rtf), out_(out) {}

  void Read();

 private:
  enum class Charset { kChinese, kWestern, kOther };
  enum class Destination { kText, kFontTable, kNoText };

  // What a group inherits, and what is as before when it ends.
  struct Group {
    Destination destination = Destination::kText;
    bool isHidden = false;
    int font = 0;
    std::uint32_t skippedAfterUnicode = 1;
  };

  struct ControlWord {
    std::string_view name;
    std::optional<int> number;
    std::size_t begin = 0;  // bytes
  };

  void ReadItem();
  void ReadControl();
  void TakeMarkedDestination();
  ControlWord TakeControlWord(std::size_t begin);
  void Handle(const ControlWord& word);
  bool HandleFont(const ControlWord& word);
  bool HandleDestination(const ControlWord& word);
  void HandleUnicode(const ControlWord& word);
  void SkipFallback(std::uint32_t count);
  std::optional<unsigned char> TakeHexByte();

  void AddByte(unsigned char byte, std::size_t begin);
  void AddTrailByte(unsigned char byte);
  struct Bytes {
    std::size_t begin;
    std::size_t end;
  };
  void Add(char16_t unit, Bytes bytes);
  // From there to where the reader stands.
  void Add(char16_t unit, std::size_t begin);
  void AddLineBreak(std::size_t begin);
  bool ShowsText() const { return group_.destination == Destination::kText && !group_.isHidden; }
  Charset CharsetNow() const;
  void DropLastParagraphEnd();

  std::string_view rtf_;
  RtfSink& out_;
  std::size_t at_ = 0;
  Group group_;
  std::vector<Group> outer_;
  bool isGroupStart_ = false;
  Charset documentCharset_ = Charset::kWestern;
  int defaultFont_ = 0;
  int fontInTable_ = 0;
  std::map<int, Charset> fonts_;
  unsigned char lead_ = 0;  // of a two-byte code, waiting for the other one
  std::size_t leadBegin_ = 0;
  std::size_t leadEnd_ = 0;
  std::optional<std::size_t> behindLineBreak_;  // when a line break was the last unit
};

}  // namespace scrivanta
