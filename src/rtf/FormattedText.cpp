#include "rtf/FormattedText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <numeric>

#include "rtf/FormattedTextReader.h"
#include "rtf/RtfGroup.h"

namespace scrivanta {

namespace {

bool AreSame(const SharedFormat& a, const SharedFormat& b) {
  return a == b || *a == *b;
}

SharedFormat NoFormat() {
  static const SharedFormat kNone = std::make_shared<const FormatWords>();
  return kNone;
}

void Append(std::vector<FormatRun>& runs, std::size_t length, const SharedFormat& format) {
  if (length == 0) {
    return;
  }
  if (!runs.empty() && AreSame(runs.back().format, format)) {
    runs.back().length += length;
  } else {
    runs.push_back({length, format});
  }
}

// Finds runs and lines by places of the text.
class FormatIndex {
 public:
  FormatIndex(std::u16string_view text, const TextFormats& formats) : formats_(formats) {
    std::size_t at = 0;
    for (const FormatRun& run : formats.runs) {
      runStarts_.push_back(at);
      at += run.length;
    }
    lineStarts_.push_back(0);
    for (std::size_t found = text.find(u'\r'); found != std::u16string_view::npos;
         found = text.find(u'\r', found + 1)) {
      lineStarts_.push_back(found + 1);
    }
  }

  // A place at the end of the text has the format of its last unit.
  SharedFormat At(std::size_t place) const {
    return runStarts_.empty() ? NoFormat() : formats_.runs[Find(runStarts_, place)].format;
  }
  const SharedFormat& ParagraphAt(std::size_t place) const { return formats_.paragraphs[Find(lineStarts_, place)]; }

  void AppendRuns(std::size_t start, std::size_t length, std::vector<FormatRun>& runs) const {
    for (std::size_t run = length == 0 ? runStarts_.size() : Find(runStarts_, start);
         run < runStarts_.size() && runStarts_[run] < start + length; ++run) {
      const std::size_t begin = std::max(start, runStarts_[run]);
      const std::size_t end = std::min(start + length, runStarts_[run] + formats_.runs[run].length);
      Append(runs, end - begin, formats_.runs[run].format);
    }
  }

 private:
  static std::size_t Find(const std::vector<std::size_t>& starts, std::size_t place) {
    return static_cast<std::size_t>(std::ranges::upper_bound(starts, place) - starts.begin()) - 1;
  }

  const TextFormats& formats_;
  std::vector<std::size_t> runStarts_;
  std::vector<std::size_t> lineStarts_;
};

// Writes formats as control words, with the tables that these refer to.
class Writer {
 public:
  explicit Writer(const FormattedText& text) : text_(text) {
    characters_ = MostFrequent(text.formats().runs);
    paragraph_ = text.formats().paragraphs.front();
  }

  RtfByLines Write() {
    RtfByLines rtf;
    // A line begins as the header leaves it, or as the line before does: what differs of these is said anew.
    SharedFormat now = characters_;
    SharedFormat paragraph = paragraph_;
    std::size_t at = 0;
    std::size_t line = 0;
    bool beginsLine = true;
    const auto beginLine = [&] {
      const SharedFormat& wanted = text_.formats().paragraphs[line];
      if (!AreSame(wanted, paragraph_) || !AreSame(paragraph, paragraph_)) {
        rtf.lines += "\\pard" + WordsOf(*wanted) + " ";
      }
      paragraph = wanted;
    };
    for (const FormatRun& run : text_.formats().runs) {
      std::size_t left = run.length;
      while (left > 0) {
        if (beginsLine) {
          beginLine();
        }
        if (beginsLine && !AreSame(now, characters_)) {
          rtf.lines += "\\plain" + WordsOf(*run.format) + " ";
        } else {
          rtf.lines += Change(*now, *run.format);
        }
        now = run.format;
        const std::u16string_view rest = std::u16string_view(text_.text()).substr(at, left);
        const std::size_t end = std::min(rest.find(u'\r'), rest.size());
        AppendText(rest.substr(0, end), rtf.lines);
        beginsLine = end < rest.size();
        if (beginsLine) {
          rtf.lines += kRtfLineEnd;
          ++line;
        }
        left -= end + (beginsLine ? 1 : 0);
        at += end + (beginsLine ? 1 : 0);
      }
    }
    if (beginsLine) {
      beginLine();
    }
    rtf.lines += kRtfLineEnd;
    rtf.header = Header();
    return rtf;
  }

 private:
  static SharedFormat MostFrequent(const std::vector<FormatRun>& runs) {
    std::map<FormatWords, std::size_t> counts;
    const FormatRun* best = nullptr;
    std::size_t most = 0;
    for (const FormatRun& run : runs) {
      const std::size_t count = ++counts[*run.format];
      if (count > most) {
        most = count;
        best = &run;
      }
    }
    return best == nullptr ? NoFormat() : best->format;
  }

  std::string WordOf(const FormatWords::value_type& word) {
    const auto& [key, value] = word;
    if (key == "f") {
      return "\\f" + std::to_string(NumberOf(fonts_, value));
    }
    if (key == "cf" || key == "cb" || key == "chcbpat" || key == "highlight") {
      return "\\" + key + std::to_string(NumberOf(colours_, value) + 1);
    }
    return value;
  }

  std::string WordsOf(const FormatWords& words) {
    return std::accumulate(words.begin(), words.end(), std::string(),
                           [this](std::string all, const auto& word) { return std::move(all) + WordOf(word); });
  }

  static std::string_view WordThatEnds(std::string_view key) {
    struct End {
      std::string_view key;
      std::string_view word;
    };
    static constexpr std::array kEnds = {
        End{"b", "\\b0"},           End{"cf", "\\cf0"},    End{"highlight", "\\highlight0"}, End{"i", "\\i0"},
        End{"strike", "\\strike0"}, End{"ul", "\\ulnone"}, End{"script", "\\nosupersub"},
    };
    const auto* const found = std::ranges::find(kEnds, key, &End::key);
    return found == kEnds.end() ? std::string_view() : found->word;
  }

  // The words that lead from one format to another; a blank ends them.
  std::string Change(const FormatWords& from, const FormatWords& to) {
    if (from == to) {
      return {};
    }
    std::string words;
    for (const auto& [key, value] : from) {
      if (std::ranges::find(to, key, &FormatWords::value_type::first) != to.end()) {
        continue;
      }
      const std::string_view end = WordThatEnds(key);
      if (end.empty()) {
        return "\\plain" + WordsOf(to) + " ";
      }
      words += end;
    }
    for (const auto& word : to) {
      if (std::ranges::find(from, word) == from.end()) {
        words += WordOf(word);
      }
    }
    return words + " ";
  }

  static void AppendText(std::u16string_view text, std::string& rtf) {
    static constexpr std::string_view kDigits = "0123456789abcdef";
    for (const char16_t unit : text) {
      if (unit == u'\t') {
        rtf += "\\tab ";
      } else if (unit == u'\\' || unit == u'{' || unit == u'}') {
        rtf.append({'\\', static_cast<char>(unit)});
      } else if (unit > 0 && unit < u' ') {
        rtf.append({'\\', '\'', kDigits[unit >> 4U], kDigits[unit & 0xFU]});
      } else if (unit == 0 || unit > 0x7E) {
        rtf.append("\\u").append(std::to_string(static_cast<std::int16_t>(unit))).append("?");
      } else {
        rtf += static_cast<char>(unit);
      }
    }
  }

  static std::size_t NumberOf(std::vector<std::string>& table, const std::string& entry) {
    const auto found = std::ranges::find(table, entry);
    const auto number = static_cast<std::size_t>(found - table.begin());
    if (found == table.end()) {
      table.push_back(entry);
    }
    return number;
  }

  std::string Header() {
    const std::string state = "\\pard" + WordsOf(*paragraph_) + "\\plain" + WordsOf(*characters_) + " ";
    std::string header = "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl";
    for (std::size_t font = 0; font < std::max<std::size_t>(fonts_.size(), 1); ++font) {
      header += "{\\f" + std::to_string(font) + (font < fonts_.size() ? fonts_[font] : "\\fnil") + ";}";
    }
    header += "}\r\n{\\colortbl ;";
    for (const std::string& colour : colours_) {
      header += colour + ";";
    }
    return header + "}\r\n\\uc1" + state;
  }

  const FormattedText& text_;
  SharedFormat characters_;  // as the header leaves them
  SharedFormat paragraph_;
  std::vector<std::string> fonts_;
  std::vector<std::string> colours_;
};

}  // namespace

std::size_t TextFormats::length() const {
  return std::accumulate(runs.begin(), runs.end(), std::size_t{0},
                         [](std::size_t sum, const FormatRun& run) { return sum + run.length; });
}

std::optional<FormattedText> FormattedText::Read(std::string_view rtf) {
  if (!IsWholeRtf(rtf)) {
    return std::nullopt;
  }
  FormattedTextReader reader(rtf);
  RtfReader(rtf, reader).Read();
  return reader.Take();
}

FormattedText::FormattedText(std::u16string text, TextFormats formats)
    : text_(std::move(text)), formats_(std::move(formats)) {
  Append(formats_.runs, text_.size() - formats_.length(), NoFormat());
  formats_.paragraphs.resize(static_cast<std::size_t>(std::ranges::count(text_, u'\r')) + 1, NoFormat());
}

TextFormats FormattedText::FormatsOf(std::size_t start, std::size_t length) const {
  TextFormats formats;
  FormatIndex(text_, formats_).AppendRuns(start, length, formats.runs);
  const std::u16string_view text = text_;
  const auto first = std::ranges::count(text.substr(0, start), u'\r');
  const auto count = std::ranges::count(text.substr(start, length), u'\r') + 1;
  formats.paragraphs.assign(formats_.paragraphs.begin() + first, formats_.paragraphs.begin() + first + count);
  return formats;
}

// A paragraph has the format of the one that the first kept unit in it comes from, else of that which it stands for.
FormattedText FormattedText::Rearranged(const TextPieces& pieces, std::u16string text) const {
  const FormatIndex index(text_, formats_);
  TextFormats formats;
  std::size_t at = 0;
  std::optional<std::size_t> origin;
  bool isOriginKept = false;
  const auto endLine = [&] {
    formats.paragraphs.push_back(index.ParagraphAt(std::min(origin.value_or(text_.size()), text_.size())));
    origin.reset();
    isOriginKept = false;
  };
  for (const TextPiece& piece : pieces) {
    if (piece.isKept) {
      index.AppendRuns(piece.from, piece.length, formats.runs);
    } else {
      Append(formats.runs, piece.length, index.At(piece.from));
    }
    for (std::size_t unit = 0; unit < piece.length; ++unit) {
      if (!origin || (piece.isKept && !isOriginKept)) {
        origin = piece.from + (piece.isKept ? unit : 0);
        isOriginKept = piece.isKept;
      }
      if (text[at + unit] == u'\r') {
        endLine();
      }
    }
    at += piece.length;
  }
  endLine();
  return {std::move(text), std::move(formats)};
}

RtfByLines FormattedText::ToRtf() const {
  return Writer(*this).Write();
}

}  // namespace scrivanta
