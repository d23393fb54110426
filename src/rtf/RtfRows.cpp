#include "rtf/RtfRows.h"

#include "rtf/RtfText.h"
#include "rtf/RtfTokens.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kRowMark = u"\r\n";

// Takes the texts of the first cells out of the control's text, one row after the other.
class FirstCells {
 public:
  explicit FirstCells(std::u16string_view controlText) : rest_(controlText) {}

  std::u16string_view Next() {
    SkipMark();
    const std::u16string_view cell = rest_.substr(0, rest_.find_first_of(u"\t\r"));
    SkipMark();
    return cell;
  }

 private:
  void SkipMark() {
    const std::size_t mark = rest_.find(kRowMark);
    rest_.remove_prefix(mark == std::u16string_view::npos ? rest_.size() : mark + kRowMark.size());
  }

  std::u16string_view rest_;
};

// Behind the last place of a cell, without the blank that may follow.
std::size_t EndOfDefinition(std::string_view rtf, std::size_t begin) {
  std::size_t end = begin;
  RtfTokens tokens(rtf, begin);
  while (const auto token = tokens.Next()) {
    if (token->kind != RtfToken::Kind::kWord || token->Is("cell") || token->Is("row") || token->Is("pard")) {
      break;
    }
    if (token->Is("cellx")) {
      end = token->end() - (token->bytes.ends_with(' ') ? 1 : 0);
    }
  }
  return end;
}

// What the first cell holds up to its end or the first tab.
std::u16string TextOfCell(std::string_view rtf, std::size_t begin) {
  std::size_t end = begin;
  RtfTokens tokens(rtf, begin);
  while (const auto token = tokens.Next()) {
    if (token->Is("cell") || token->Is("par") || token->Is("line") || token->Is("tab") || token->Is("row") ||
        token->kind == RtfToken::Kind::kClose) {
      break;
    }
    end = token->end();
  }
  return RtfText(std::string("{\\rtf1\\uc1 ").append(rtf.substr(begin, end - begin)) + "}").text();
}

// The beginning of the cell's text that has become a part of the definition: digits at its end, and the blank behind
// it.
std::u16string_view LostText(std::string_view definition, std::string_view rtf, std::u16string_view cell) {
  const std::size_t blank = rtf.substr(definition.size(), 1) == " " ? 1 : 0;
  const std::u16string found = TextOfCell(rtf, definition.size() + blank);
  if (!cell.ends_with(found)) {
    return {};
  }
  const std::u16string_view lost = cell.substr(0, cell.size() - found.size());
  const std::u16string_view digits = lost.substr(0, lost.find_first_not_of(u"0123456789"));
  const std::u16string_view behind = lost.substr(digits.size());
  return definition.ends_with(std::string(digits.begin(), digits.end())) && (behind.empty() || behind == u" ")
             ? lost
             : std::u16string_view();
}

}  // namespace

std::string WithRowsInTables(std::string_view rtf, std::u16string_view controlText) {
  std::string whole;
  FirstCells cells(controlText);
  std::size_t copied = 0;
  RtfTokens tokens(rtf);
  while (const auto token = tokens.Next()) {
    if (!token->Is("trowd")) {
      continue;
    }
    const std::size_t end = EndOfDefinition(rtf, token->end());
    const std::u16string_view lost = LostText(rtf.substr(0, end), rtf, cells.Next());
    const std::size_t digits = lost.ends_with(u' ') ? lost.size() - 1 : lost.size();
    whole.append(rtf.substr(copied, end - digits - copied)).append("\\intbl ").append(lost.begin(), lost.end());
    copied = rtf.substr(end, 1) == " " ? end + 1 : end;
    tokens.GoTo(end);
  }
  return whole.append(rtf.substr(copied));
}

}  // namespace scrivanta
