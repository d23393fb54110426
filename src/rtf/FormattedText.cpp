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

std::size_t Find(const std::vector<std::size_t>& starts, std::size_t place) {
  return static_cast<std::size_t>(std::ranges::upper_bound(starts, place) - starts.begin()) - 1;
}

// Writes formats as control words, with the tables that these refer to.
class Writer {
 public:
  explicit Writer(const FormattedText& text) : text_(text) {
    characters_ = MostFrequent(text);
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
  // Of the beginnings of lines: each of these says nothing then.
  static SharedFormat MostFrequent(const FormattedText& text) {
    std::map<FormatWords, std::size_t> counts;
    SharedFormat best = NoFormat();
    std::size_t most = 0;
    std::size_t at = 0;
    bool beginsLine = true;
    for (const FormatRun& run : text.formats().runs) {
      const std::u16string_view units = std::u16string_view(text.text()).substr(at, run.length);
      const auto ends = static_cast<std::size_t>(std::ranges::count(units, u'\r'));
      std::size_t& count = counts[*run.format];
      count += ends + (beginsLine ? 1 : 0) - (units.ends_with(u'\r') ? 1 : 0);
      if (count > most) {
        most = count;
        best = run.format;
      }
      beginsLine = units.ends_with(u'\r');
      at += run.length;
    }
    return best;
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
    std::string all;
    for (const auto& word : words) {
      all += WordOf(word);
    }
    return all;
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

bool operator==(const FormatRun& a, const FormatRun& b) {
  return a.length == b.length && AreSame(a.format, b.format);
}

bool operator==(const TextFormats& a, const TextFormats& b) {
  return a.runs == b.runs && std::ranges::equal(a.paragraphs, b.paragraphs, &AreSame);
}

std::size_t TextFormats::length() const {
  return std::accumulate(runs.begin(), runs.end(), std::size_t{0},
                         [](std::size_t sum, const FormatRun& run) { return sum + run.length; });
}

TextFormats Joined(const TextFormats& first, const TextFormats& second) {
  TextFormats joined = first;
  for (const FormatRun& run : second.runs) {
    Append(joined.runs, run.length, run.format);
  }
  const std::size_t shared = std::min<std::size_t>(first.paragraphs.empty() ? 0 : 1, second.paragraphs.size());
  joined.paragraphs.insert(joined.paragraphs.end(), second.paragraphs.begin() + static_cast<std::ptrdiff_t>(shared),
                           second.paragraphs.end());
  return joined;
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

FormatFinder::FormatFinder(const FormattedText& text) : formats_(text.formats()) {
  std::size_t at = 0;
  for (const FormatRun& run : formats_.runs) {
    runStarts_.push_back(at);
    at += run.length;
  }
  lineStarts_.push_back(0);
  for (std::size_t found = text.text().find(u'\r'); found != std::u16string::npos;
       found = text.text().find(u'\r', found + 1)) {
    lineStarts_.push_back(found + 1);
  }
}

SharedFormat FormatFinder::At(std::size_t place) const {
  return runStarts_.empty() ? NoFormat() : formats_.runs[Find(runStarts_, place)].format;
}

const SharedFormat& FormatFinder::ParagraphAt(std::size_t place) const {
  return formats_.paragraphs[Find(lineStarts_, place)];
}

TextFormats FormatFinder::Of(std::size_t start, std::size_t length) const {
  TextFormats formats;
  AppendRuns(start, length, formats.runs);
  const auto first = formats_.paragraphs.begin() + static_cast<std::ptrdiff_t>(Find(lineStarts_, start));
  const auto last = formats_.paragraphs.begin() + static_cast<std::ptrdiff_t>(Find(lineStarts_, start + length));
  formats.paragraphs.assign(first, last + 1);
  return formats;
}

void FormatFinder::AppendRuns(std::size_t start, std::size_t length, std::vector<FormatRun>& runs) const {
  for (std::size_t run = length == 0 ? runStarts_.size() : Find(runStarts_, start);
       run < runStarts_.size() && runStarts_[run] < start + length; ++run) {
    const std::size_t begin = std::max(start, runStarts_[run]);
    const std::size_t end = std::min(start + length, runStarts_[run] + formats_.runs[run].length);
    Append(runs, end - begin, formats_.runs[run].format);
  }
}

// A paragraph has the format of the one that the first kept unit in it comes from, else of that which it stands for.
FormattedText FormattedText::Rearranged(const TextPieces& pieces, std::u16string text) const {
  const FormatFinder index(*this);
  TextFormats formats;
  std::size_t at = 0;
  constexpr std::size_t kNone = std::u16string::npos;
  std::size_t origin = kNone;
  bool isOriginKept = false;
  const auto endLine = [&] {
    formats.paragraphs.push_back(index.ParagraphAt(std::min(origin, text_.size())));
    origin = kNone;
    isOriginKept = false;
  };
  for (auto next = pieces.begin(); next != pieces.end();) {
    const TextPiece& piece = *next++;
    // Units that others have taken the place of one by one.
    const std::size_t behind = piece.from + piece.length;
    const bool isOneByOne = next == pieces.end() ? behind == text_.size() : next->isKept && next->from == behind;
    if (piece.isKept || isOneByOne) {
      index.AppendRuns(piece.from, piece.length, formats.runs);
    } else {
      Append(formats.runs, piece.length, index.At(piece.from));
    }
    for (std::size_t unit = 0; unit < piece.length; ++unit) {
      if (origin == kNone || (piece.isKept && !isOriginKept)) {
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

FormattedText FormattedText::Changed(std::span<const FormattedChange> changes) const {
  const FormatFinder finder(*this);
  std::u16string text;
  TextFormats formats;
  // The paragraph that is not at its end yet; it has the format that was told of it first.
  SharedFormat paragraph = finder.ParagraphAt(0);
  bool begins = true;
  const auto append = [&](std::u16string_view part, const std::vector<SharedFormat>& paragraphs) {
    for (std::size_t line = 0; !part.empty(); ++line) {
      paragraph = begins ? paragraphs[line] : paragraph;
      const std::size_t end = part.find(u'\r');
      begins = end != std::u16string_view::npos;
      text += part.substr(0, begins ? end + 1 : end);
      if (!begins) {
        return;
      }
      formats.paragraphs.push_back(paragraph);
      part.remove_prefix(end + 1);
    }
  };
  const auto keep = [&](std::size_t start, std::size_t end) {
    const TextFormats kept = finder.Of(start, end - start);
    for (const FormatRun& run : kept.runs) {
      Append(formats.runs, run.length, run.format);
    }
    append(std::u16string_view(text_).substr(start, end - start), kept.paragraphs);
  };
  std::size_t at = 0;
  for (const FormattedChange& change : changes) {
    keep(at, change.start);
    if (change.formats) {
      for (const FormatRun& run : change.formats->runs) {
        Append(formats.runs, run.length, run.format);
      }
      append(change.text, change.formats->paragraphs);
    } else {
      const bool isAdded = change.length == 0 && change.start > 0;
      Append(formats.runs, change.text.size(), finder.At(change.start - (isAdded ? 1 : 0)));
      const auto lines = static_cast<std::size_t>(std::ranges::count(change.text, u'\r')) + 1;
      append(change.text, std::vector<SharedFormat>(lines, finder.ParagraphAt(change.start)));
    }
    at = change.start + change.length;
  }
  keep(at, text_.size());
  formats.paragraphs.push_back(begins ? finder.ParagraphAt(text_.size()) : paragraph);
  return {std::move(text), std::move(formats)};
}

RtfByLines FormattedText::ToRtf() const {
  return Writer(*this).Write();
}

}  // namespace scrivanta
