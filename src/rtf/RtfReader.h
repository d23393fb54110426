// Reads the bytes of a rich text into an RtfText.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "rtf/RtfText.h"

namespace scrivanta {

class RtfReader {
 public:
  RtfReader(std::string_view rtf, RtfText& out) : rtf_(rtf), out_(out) {}

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
  RtfText& out_;
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
};

}  // namespace scrivanta
