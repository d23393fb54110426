#include "calendar/RtfPage.h"

#include <utility>

#include "rtf/RtfEscape.h"

namespace scrivanta {

namespace {

// The colours in the order of PageColour, whose first is the reader's own, then those of the grounds.
constexpr std::string_view kHead =
    "{\\rtf1\\ansi\\ansicpg936\\deff0\\deflang1033\\deflangfe2052"
    "{\\fonttbl{\\f0\\fnil\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}"
    "{\\colortbl "
    ";\\red208\\green0\\blue0;\\red0\\green112\\blue64;\\red176\\green80\\blue0;\\red112\\green112\\blue112;"
    "\\red255\\green232\\blue112;\\red176\\green216\\blue255;\\red0\\green0\\blue0;}"
    "\\viewkind4\\uc1\\pard\\lang2052\\f0 ";
constexpr int kFirstGround = 4;
constexpr int kBlack = 7;  // on a ground the reader's own colour may not be seen

std::string Number(std::string_view word, int number) {
  return std::string(word) + std::to_string(number);
}

}  // namespace

RtfPage::RtfPage(std::u16string name) {
  page_.name = std::move(name);
  page_.rtf = kHead;
}

void RtfPage::SetTabs(const std::vector<int>& stops) {
  page_.rtf += "\\pard";
  for (const int stop : stops) {
    page_.rtf += Number("\\tx", stop);
  }
  page_.rtf += ' ';
}

void RtfPage::Write(std::u16string_view text, const PageFormat& format) {
  const bool hasGround = format.ground != PageGround::kNone;
  const int colour = static_cast<int>(format.colour);
  page_.rtf += '{' + Number("\\fs", format.halfPoints) + Number("\\cf", hasGround && colour == 0 ? kBlack : colour);
  if (hasGround) {
    page_.rtf += Number("\\highlight", kFirstGround + static_cast<int>(format.ground));
  }
  page_.rtf += format.bold ? "\\b" : "";
  page_.rtf += format.underline ? "\\ul" : "";
  page_.rtf += ' ' + RtfHexEscape(RtfEscapeText(text)) + '}';
  page_.text += text;
  length_ += text.size();
}

void RtfPage::WriteDay(Day day, std::u16string_view text, const PageFormat& format) {
  page_.days.push_back({.day = day, .start = length_, .length = text.size()});
  Write(text, format);
}

void RtfPage::Tab() {
  page_.rtf += "\\tab ";
  page_.text += u'\t';
  ++length_;
}

void RtfPage::EndLine() {
  page_.rtf += "\\par\r\n";
  page_.text += u"\r\n";
  ++length_;
}

CalendarPage RtfPage::Finish() {
  page_.rtf += '}';
  return std::move(page_);
}

}  // namespace scrivanta
