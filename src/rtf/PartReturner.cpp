#include "rtf/PartReturner.h"

#include <algorithm>
#include <array>
#include <span>

#include "rtf/RtfGroup.h"

namespace scrivanta {

namespace {

constexpr std::string_view kFontTable = "{\\fonttbl";
constexpr std::string_view kColourTable = "{\\colortbl";

// Control words that are text, or belong to the row of a table, and say nothing of how the text behind them looks.
constexpr std::array<std::string_view, 18> kNoFormat = {
    "bullet", "cell", "emdash", "emspace",   "endash", "enspace", "intbl", "ldblquote", "line",
    "lquote", "page", "par",    "rdblquote", "row",    "rquote",  "tab",   "u",         "uc"};

bool IsFormat(std::string_view word) {
  return !word.starts_with("tr") && !word.starts_with("cl") && word != "cellx" &&
         std::ranges::find(kNoFormat, word) == kNoFormat.end();
}

std::size_t EndOfGroupAt(std::string_view rtf, std::size_t begin) {
  return begin + EndOfGroup(rtf.substr(begin)).value_or(0);
}

}  // namespace

std::string PartReturner::PutBack(const KeptParts::Head& head) {
  const std::size_t begin = EndOfTables();
  const std::string headRtf = Renumbered(head.rtf, head.tables);
  PairFields(begin);
  Return(begin);
  return TablesWithNewEntries(begin).append(headRtf).append(out_);
}

std::size_t PartReturner::EndOfTables() const {
  std::size_t end = 0;
  for (const std::string_view table : {kFontTable, kColourTable}) {
    if (const std::size_t begin = rtf_.find(table); begin != std::string_view::npos) {
      end = std::max(end, EndOfGroupAt(rtf_, begin));
    }
  }
  RtfTokens tokens(rtf_, 1);
  for (auto token = tokens.Next(); end == 0 && token; token = tokens.Next()) {
    if (token->kind != RtfToken::Kind::kWord || token->name == "pard") {
      end = token->begin;
    }
  }
  return end;
}

const KeptParts::Part* PartReturner::PartOf(const RtfToken& token) const {
  if (!token.Is("u")) {
    return nullptr;
  }
  const auto part = parts_.parts_.find(static_cast<char16_t>(token.number.value_or(0)));
  return part == parts_.parts_.end() ? nullptr : &part->second;
}

void PartReturner::PairFields(std::size_t begin) {
  struct Open {
    std::size_t place;
    char16_t end;
  };
  std::vector<Open> open;
  RtfTokens tokens(rtf_, begin);
  while (const auto token = tokens.Next()) {
    const KeptParts::Part* const part = PartOf(*token);
    if (part != nullptr && part->end != 0) {
      open.push_back({token->begin, part->end});
    } else if (part != nullptr && part->isEnd) {
      const auto sign = static_cast<char16_t>(*token->number);
      const auto partner =
          std::find_if(open.rbegin(), open.rend(), [sign](const Open& field) { return field.end == sign; });
      if (partner != open.rend()) {
        fieldEnds_.insert({partner->place, token->begin});
        open.erase(std::prev(partner.base()), open.end());
      }
    }
  }
}

void PartReturner::Return(std::size_t begin) {
  RtfTokens tokens(rtf_, begin);
  while (const auto token = tokens.Next()) {
    if (const KeptParts::Part* const part = PartOf(*token)) {
      ReturnPart(*part, token->begin);
      // The character for readers who do not know \u.
      tokens.GoTo(token->end() + (rtf_.substr(token->end(), 1) == "?" ? 1 : 0));
    } else if (token->kind == RtfToken::Kind::kOpen) {
      const std::size_t end = std::max(EndOfGroupAt(rtf_, token->begin), token->end());
      out_ += rtf_.substr(token->begin, end - token->begin);
      tokens.GoTo(end);
    } else {
      ReturnToken(*token);
    }
  }
}

void PartReturner::ReturnToken(const RtfToken& token) {
  out_ += token.bytes;
  if (!changes_.empty() && token.kind == RtfToken::Kind::kWord && IsFormat(token.name)) {
    changes_.back() += token.bytes;
  }
}

void PartReturner::ReturnPart(const KeptParts::Part& part, std::size_t place) {
  const bool isField = part.isEnd || part.end != 0;
  if (isField && !fieldEnds_.contains(place)) {
    out_ += "{}";  // ends the control word before
    return;
  }
  out_ += Renumbered(part.rtf, part.tables);
  if (part.end != 0) {
    changes_.emplace_back();
  } else if (part.isEnd) {
    // The group of the field has taken back what its text has changed, and the control counts on.
    const std::string changes = std::move(changes_.back());
    changes_.pop_back();
    out_.append(changes).append(changes.empty() || changes.ends_with(' ') ? "" : " ");
    if (!changes_.empty()) {
      changes_.back() += changes;
    }
  }
}

std::string PartReturner::Renumbered(std::string_view rtf, std::size_t tables) {
  std::string renumbered;
  renumbered.reserve(rtf.size());
  RtfTokens tokens(rtf);
  while (const auto token = tokens.Next()) {
    const bool isFont = token->kind == RtfToken::Kind::kWord && IsFontWord(token->name);
    const bool isColour = token->kind == RtfToken::Kind::kWord && IsColourWord(token->name);
    if (!token->number || (!isFont && !isColour)) {
      renumbered += token->bytes;
      continue;
    }
    const int number = isFont ? FontNumber(tables, *token->number) : ColourNumber(tables, *token->number);
    renumbered.append("\\").append(token->name).append(std::to_string(number));
    if (token->bytes.ends_with(' ')) {
      renumbered += ' ';
    }
  }
  return renumbered;
}

int PartReturner::FontNumber(std::size_t tables, int number) {
  const auto& fonts = parts_.tables_[tables].fonts;
  const auto font = fonts.find(number);
  if (font == fonts.end()) {
    return 0;
  }
  const int next = (tables_.fonts.empty() ? 0 : tables_.fonts.rbegin()->first + 1) + static_cast<int>(fonts_.size());
  const auto [place, isNew] = fonts_.try_emplace({tables, number}, next);
  if (isNew) {
    newFonts_.append("{\\f").append(std::to_string(next)).append(" ").append(font->second).append("}");
  }
  return place->second;
}

int PartReturner::ColourNumber(std::size_t tables, int number) {
  const auto& colours = parts_.tables_[tables].colours;
  if (number < 0 || static_cast<std::size_t>(number) >= colours.size() ||
      colours[static_cast<std::size_t>(number)].empty()) {
    return 0;
  }
  const auto known = static_cast<int>(std::max<std::size_t>(tables_.colours.size(), 1) + colours_.size());
  const auto [place, isNew] = colours_.try_emplace({tables, number}, known);
  if (isNew) {
    newColours_.append(colours[static_cast<std::size_t>(number)]).append(";");
  }
  return place->second;
}

std::string PartReturner::TablesWithNewEntries(std::size_t end) const {
  std::string whole(rtf_.substr(0, end));
  const auto add = [&whole](std::string_view table, std::string_view beginning, std::string_view entries) {
    const std::size_t begin = whole.find(table);
    if (entries.empty()) {
      return;
    }
    if (begin == std::string::npos) {
      whole.append(beginning).append(entries).append("}");
    } else {
      whole.insert(EndOfGroupAt(whole, begin) - 1, entries);
    }
  };
  add(kFontTable, kFontTable, newFonts_);
  add(kColourTable, "{\\colortbl;", newColours_);
  return whole;
}

}  // namespace scrivanta
