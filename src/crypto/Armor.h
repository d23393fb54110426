// Bytes as lines of a text: Base64 in lines of 76 characters between a first and a last line that say what it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/Bytes.h"
#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

inline constexpr std::string_view kArmorBegin = "-----BEGIN SCRIVANTA SEALED TEXT-----";
inline constexpr std::string_view kArmorEnd = "-----END SCRIVANTA SEALED TEXT-----";

// All functions here throw FileError and Interrupted.
class ArmorSink final : public ByteSink {
 public:
  explicit ArmorSink(ByteSink& text);
  void Write(std::string_view bytes) override;
  // To be called at the end of a successful work.
  void Close();

 private:
  LineWriter lines_;
  std::string pending_;  // less than a line
};

// Reads what stands between the two lines; blanks and empty lines around and between do not count.
class ArmorSource final : public ByteSource {
 public:
  ArmorSource(ByteSource& text, Progress& progress);

  // Whether the first line is the one that it has to be. To be asked before anything is read.
  bool Begins();
  std::size_t Read(std::span<char> buffer) override;
  // Whether the last line has been read, and nothing else but Base64 before it and nothing behind it. To be asked after
  // the last Read.
  bool HasEnded();

 private:
  bool NextLine();  // that is not empty, into line_
  void DecodeWholeGroups();

  LineReader lines_;
  std::string_view line_;
  std::string characters_;  // not yet decoded: less than a group of four
  std::string bytes_;       // decoded
  std::size_t taken_ = 0;   // of bytes_
  bool hasEnded_ = false;
  bool isDamaged_ = false;  // what stands there is no Base64
};

}  // namespace scrivanta
