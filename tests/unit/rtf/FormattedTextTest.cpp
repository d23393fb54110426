#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "rtf/FormattedText.h"

namespace scrivanta {
namespace {

constexpr std::string_view kHead =
    "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}{\\f1 Arial;}}"
    "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\\uc1\\pard\\fs21 ";

FormattedText Read(std::string_view body) {
  const auto text = FormattedText::Read(std::string(kHead).append(body).append("}"));
  EXPECT_TRUE(text) << body;
  return text.value_or(FormattedText());
}

// Each run with what it has beside the font and the size of the head, then the formats of the paragraphs.
std::string Show(const FormattedText& text) {
  std::string shown;
  std::size_t at = 0;
  for (const FormatRun& run : text.formats().runs) {
    std::string words;
    for (const auto& [key, value] : *run.format) {
      if (key == "cf") {
        words += value.starts_with("\\red255") ? "red " : "blue ";
      } else if (key == "f" ? value.ends_with("Arial") : key != "fs" || value != "\\fs21") {
        words += key + " ";
      }
    }
    shown += words.empty() ? "" : "<" + words.substr(0, words.size() - 1) + ">";
    for (const char16_t unit : text.text().substr(at, run.length)) {
      shown += unit == u'\r' ? '|' : static_cast<char>(unit);
    }
    shown += words.empty() ? "" : "</>";
    at += run.length;
  }
  for (const SharedFormat& paragraph : text.formats().paragraphs) {
    shown += ";";
    for (const auto& [key, value] : *paragraph) {
      shown += value;
    }
  }
  return shown;
}

void ExpectSame(const FormattedText& a, const FormattedText& b) {
  ASSERT_EQ(a.text(), b.text());
  ASSERT_EQ(Show(a), Show(b));
}

// A text at random, in some formats.
FormattedText AnyText(std::mt19937& random) {
  constexpr std::string_view kWords[] = {"\\b ",           "\\b0 ",   "\\i ",   "\\i0 ",     "\\cf1 ",  "\\cf0 ",
                                         "\\cf2 ",         "\\f1 ",   "\\f0 ",  "\\fs40 ",   "\\fs21 ", "\\up6 ",
                                         "\\plain\\fs21 ", "\\caps ", "\\par ", "\\par\r\n", "one ",    "\\{x\\}",
                                         "\\u20013?",      "\\pard ", "\\qc ",  "\\li300 ",  "\\tab ",  "\\'d6\\'d0"};
  std::string body;
  for (std::size_t count = random() % 40; count > 0; --count) {
    body += kWords[random() % std::size(kWords)];
  }
  return Read(body);
}

TEST(FormattedText, ReadsWhatHoldsForEachCharacter) {
  EXPECT_EQ(Show(Read("a\\b b{\\i c}\\b0\\cf1 d\\par\\qc\\plain\\fs21 e\\cf2\\f1 f\\ulnone\\cf0\\f0 g\\par")),
            "a<b>b</><b i>c</><red>d|</>e<blue f>f</>g;;\\qc");
  EXPECT_EQ(Show(Read("\\li300\\tx500\\tx900 a\\par\\pard\\b\\par b")), "a|<b>|b</>;\\li300\\tx500\\tx900;;");
  EXPECT_EQ(Show(Read("")), ";");
  // An empty last line.
  EXPECT_EQ(Show(Read("a\\par\\qr\\par")), "a|;;\\qr");
  // A control ends with a NUL.
  const auto withNul = FormattedText::Read(std::string(kHead) + "a\\par}" + '\0');
  ASSERT_TRUE(withNul);
  EXPECT_EQ(withNul->text(), u"a");
}

TEST(FormattedText, WhatCannotBeTakenApartIsNotTaken) {
  for (const char* const body : {"a{\\pict\\dibitmap0 00}b", "\\trowd\\cellx100\\intbl a\\cell\\row",
                                 "{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt y}}", "{\\*\\pn\\pnlvlblt}a"}) {
    EXPECT_FALSE(FormattedText::Read(std::string(kHead).append(body).append("}"))) << body;
  }
  EXPECT_FALSE(FormattedText::Read("plain"));
  EXPECT_FALSE(FormattedText::Read(std::string(kHead) + "a"));
}

TEST(FormattedText, PiecesBringTheirFormatsAlong) {
  const FormattedText text = Read("\\qc pear\\par\\pard\\b apple\\b0\\par x\\cf1 cat\\cf0 y");
  const auto rearranged = [&text](std::u16string_view after) {
    return Show(text.Rearranged(MatchTexts(text.text(), after), std::u16string(after)));
  };
  EXPECT_EQ(rearranged(u"apple\rpear\rxcaty"), "<b>apple</>|pear|x<red>cat</>y;;\\qc;");
  // What is new has the format of what it takes the place of, or of what it is added to.
  EXPECT_EQ(rearranged(u"pear\rapples\rxdogy"), "pear|<b>apples</>|x<red>dog</>y;\\qc;;");
  EXPECT_EQ(rearranged(u""), ";");
}

// A change and the one that takes it back, with the formats of what was there.
TEST(FormattedText, ChangesAreTakenBackWithTheirFormats) {
  std::mt19937 random(12);
  for (int round = 0; round < 400; ++round) {
    const FormattedText before = AnyText(random);
    const FormattedText other = AnyText(random);
    const FormatFinder inBefore(before);
    const FormatFinder inOther(other);
    std::vector<FormattedChange> changes;
    std::vector<FormattedChange> back;
    std::size_t at = 0;
    std::size_t added = 0;
    while (at < before.text().size()) {
      const std::size_t start = at + random() % (before.text().size() - at);
      const std::size_t length = random() % (before.text().size() - start);
      const std::size_t from = random() % (other.text().size() + 1);
      const std::u16string_view text = std::u16string_view(other.text()).substr(from, random() % 9);
      const auto share = [](TextFormats formats) { return std::make_shared<const TextFormats>(std::move(formats)); };
      changes.push_back({start, length, text, share(inOther.Of(from, text.size()))});
      back.push_back({start + added, text.size(), std::u16string_view(before.text()).substr(start, length),
                      share(inBefore.Of(start, length))});
      added += text.size() - length;
      at = start + length + 1;
    }
    const FormattedText after = before.Changed(changes);
    for (std::size_t i = 0; i < changes.size(); ++i) {
      const FormattedText part(std::u16string(changes[i].text), FormatFinder(after).Of(back[i].start, back[i].length));
      ASSERT_EQ(part.formats().runs.size(), changes[i].formats->runs.size());
    }
    const FormattedText again = after.Changed(back);
    ASSERT_EQ(again.text(), before.text());
    ASSERT_EQ(Show(again).substr(0, Show(again).find(';')), Show(before).substr(0, Show(before).find(';')));
  }
}

// A control takes much longer for a line that begins with its format.
TEST(FormattedText, MostLinesNeedNoFormatAtTheirBeginning) {
  const RtfByLines rtf = Read("\\b a\\b0  x\\par b\\par c\\par\\b d\\b0  x\\par e").ToRtf();
  EXPECT_EQ(rtf.lines, "\\b a\\b0  x\\par \r\nb\\par \r\nc\\par \r\n\\b d\\b0  x\\par \r\ne\\par \r\n");
}

// Written and read again, whole and cut between any two lines.
TEST(FormattedText, SurvivesItsRichText) {
  std::mt19937 random(1125);
  for (int round = 0; round < 400; ++round) {
    const FormattedText text = AnyText(random);
    const RtfByLines rtf = text.ToRtf();
    const auto again = FormattedText::Read(rtf.Whole());
    ASSERT_TRUE(again);
    ExpectSame(*again, text);

    std::string_view rest = rtf.lines;
    for (std::size_t begin = 0; !rest.empty();) {
      const std::size_t end = rest.find(kRtfLineEnd) + kRtfLineEnd.size();
      const auto line = FormattedText::Read(rtf.header + std::string(rest.substr(0, end)) + "}");
      rest.remove_prefix(end);
      ASSERT_TRUE(line);
      ExpectSame(*line, FormattedText(text.text().substr(begin, line->text().size()),
                                      FormatFinder(text).Of(begin, line->text().size())));
      begin += line->text().size() + 1;
    }
  }
}

}  // namespace
}  // namespace scrivanta
