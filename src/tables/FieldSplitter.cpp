#include "tables/FieldSplitter.h"

#include <utility>

#include "regexp/RegExp.h"
#include "tables/AlignedFinder.h"
#include "tables/Blanks.h"
#include "tables/QuotedFields.h"
#include "tables/RecordError.h"
#include "tables/SplitAtByte.h"

namespace scrivanta {

namespace {

class TabFields final : public FieldSplitter {
 public:
  bool Start(std::string_view line, std::uint64_t, Fields& fields) override {
    SplitAtByte(line, '\t', fields);
    return true;
  }
};

class TextFields final : public FieldSplitter {
 public:
  explicit TextFields(const RecordFormat& format) : delimiter_(format.encoding, Encode(format.encoding, format.text)) {}

  bool Start(std::string_view line, std::uint64_t, Fields& fields) override {
    for (;;) {
      const std::size_t found = delimiter_.Find(line);
      fields.push_back(line.substr(0, found));
      if (found == std::string_view::npos) {
        return true;
      }
      line.remove_prefix(found + delimiter_.text().size());
    }
  }

 private:
  AlignedFinder delimiter_;
};

class BlankFields final : public FieldSplitter {
 public:
  explicit BlankFields(Encoding encoding) : encoding_(encoding) {}

  bool Start(std::string_view line, std::uint64_t, Fields& fields) override {
    std::string_view rest = SkipBlanks(encoding_, line);
    while (!rest.empty()) {
      const std::size_t length = FindBlank(encoding_, rest);
      fields.push_back(rest.substr(0, length));
      rest = SkipBlanks(encoding_, rest.substr(length));
    }
    if (fields.empty()) {
      fields.push_back(rest);
    }
    return true;
  }

 private:
  Encoding encoding_;
};

// An empty match separates nothing.
class PatternFields final : public FieldSplitter {
 public:
  PatternFields(const RecordFormat& format, Progress& progress)
      : pattern_(BuiltInRegExpEngine().Compile(format.text, {})), encoding_(format.encoding), progress_(progress) {}

  bool Start(std::string_view line, std::uint64_t, Fields& fields) override {
    text_.clear();
    DecodeAppend(encoding_, line, text_);
    bytes_.clear();
    ends_.clear();
    std::size_t begin = 0;
    pattern_->Scan(
        text_, 0,
        [&](const RegExpMatch& match) {
          if (!match.value.empty()) {
            AddField(begin, match.start);
            begin = match.end();
          }
          return true;
        },
        progress_);
    AddField(begin, text_.size());
    std::size_t fieldBegin = 0;
    for (const std::size_t end : ends_) {
      fields.push_back(std::string_view(bytes_).substr(fieldBegin, end - fieldBegin));
      fieldBegin = end;
    }
    return true;
  }

 private:
  void AddField(std::size_t begin, std::size_t end) {
    EncodeAppend(encoding_, std::u16string_view(text_).substr(begin, end - begin), bytes_);
    ends_.push_back(bytes_.size());
  }

  std::unique_ptr<RegExp> pattern_;
  Encoding encoding_;
  Progress& progress_;
  std::u16string text_;
  std::string bytes_;
  std::vector<std::size_t> ends_;
};

// A line that is too short has empty fields at its end.
class FixedFields final : public FieldSplitter {
 public:
  explicit FixedFields(const RecordFormat& format)
      : width_(format.encoding, format.unit), widths_(format.widths), lastTakesRest_(format.lastTakesRest) {}

  bool Start(std::string_view line, std::uint64_t number, Fields& fields) override {
    for (const std::size_t width : widths_) {
      const FittingPart part = width_.Fit(line, width);
      const bool cutsCharacter = part.width < width && part.bytes < line.size();
      if (cutsCharacter && !lastTakesRest_) {
        throw RecordError(number, fields.size() + 1, "a character lies across the end of the column",
                          u"有一个字跨在列的边界上");
      }
      fields.push_back(line.substr(0, part.bytes));
      line.remove_prefix(part.bytes);
    }
    if (lastTakesRest_) {
      fields.push_back(line);
    } else if (line.find_first_not_of(' ') != std::string_view::npos) {
      throw RecordError(number, fields.size() + 1, "the line is longer than the widths", u"这一行比各列宽度之和长");
    }
    return true;
  }

  // Programs of the time put Ctrl-Z behind the last record.
  bool IsEnd(std::string_view line) const override { return line == "\x1A" && !lastTakesRest_; }

 private:
  TextWidth width_;
  std::vector<std::size_t> widths_;
  bool lastTakesRest_;
};

}  // namespace

std::unique_ptr<FieldSplitter> MakeFieldSplitter(const RecordFormat& format, Progress& progress) {
  switch (format.separation) {
    case Separation::kComma:
      return std::make_unique<QuotedFields>(',');
    case Separation::kSemicolon:
      return std::make_unique<QuotedFields>(';');
    case Separation::kBlanks:
      return std::make_unique<BlankFields>(format.encoding);
    case Separation::kText:
      return std::make_unique<TextFields>(format);
    case Separation::kPattern:
      return std::make_unique<PatternFields>(format, progress);
    case Separation::kFixedWidths:
      return std::make_unique<FixedFields>(format);
    case Separation::kTab:
      break;
  }
  return std::make_unique<TabFields>();
}

}  // namespace scrivanta
