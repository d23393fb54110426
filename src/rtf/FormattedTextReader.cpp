#include "rtf/FormattedTextReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "rtf/RtfGroup.h"

namespace scrivanta {

namespace {

// What a word says something about; words of the same key take the place of each other.
struct KnownWord {
  std::string_view name;
  std::string_view key;
};

constexpr auto kCharacterWords = std::to_array<KnownWord>({
    {"b", "b"},
    {"i", "i"},
    {"ul", "ul"},
    {"ulnone", "ul"},
    {"uld", "ul"},
    {"uldash", "ul"},
    {"uldashd", "ul"},
    {"uldashdd", "ul"},
    {"uldb", "ul"},
    {"ulhair", "ul"},
    {"ulth", "ul"},
    {"ulw", "ul"},
    {"ulwave", "ul"},
    {"strike", "strike"},
    {"striked", "strike"},
    {"super", "script"},
    {"sub", "script"},
    {"nosupersub", "script"},
    {"up", "offset"},
    {"dn", "offset"},
    {"v", "v"},
    {"caps", "caps"},
    {"scaps", "scaps"},
    {"outl", "outl"},
    {"shad", "shad"},
    {"embo", "embo"},
    {"impr", "impr"},
    {"protect", "protect"},
    {"revised", "revised"},
    {"expnd", "expnd"},
    {"expndtw", "expndtw"},
    {"kerning", "kerning"},
    {"charscalex", "charscalex"},
    {"animtext", "animtext"},
    {"f", "f"},
    {"fs", "fs"},
    {"cf", "cf"},
    {"cb", "cb"},
    {"chcbpat", "chcbpat"},
    {"highlight", "highlight"},
    {"lang", "lang"},
    {"langfe", "langfe"},
});

// Of these there may be several at a time; they go on where the one before has ended.
constexpr std::string_view kTabs = "tabs";
constexpr std::string_view kBorders = "borders";

constexpr auto kParagraphWords = std::to_array<KnownWord>({
    {"ql", "q"},
    {"qr", "q"},
    {"qc", "q"},
    {"qj", "q"},
    {"li", "li"},
    {"ri", "ri"},
    {"fi", "fi"},
    {"lin", "lin"},
    {"rin", "rin"},
    {"sb", "sb"},
    {"sa", "sa"},
    {"sl", "sl"},
    {"slmult", "slmult"},
    {"keep", "keep"},
    {"keepn", "keepn"},
    {"pagebb", "pagebb"},
    {"noline", "noline"},
    {"hyphpar", "hyphpar"},
    {"widctlpar", "widctlpar"},
    {"nowidctlpar", "widctlpar"},
    {"ltrpar", "direction"},
    {"rtlpar", "direction"},
    {"tx", kTabs},
    {"tb", kTabs},
    {"tqr", kTabs},
    {"tqc", kTabs},
    {"tqdec", kTabs},
    {"tldot", kTabs},
    {"tlhyph", kTabs},
    {"tlul", kTabs},
    {"tlth", kTabs},
    {"tleq", kTabs},
    {"brdrt", kBorders},
    {"brdrb", kBorders},
    {"brdrl", kBorders},
    {"brdrr", kBorders},
    {"brdrs", kBorders},
    {"brdrdb", kBorders},
    {"brdrw", kBorders},
    {"brsp", kBorders},
    {"brdrcf", kBorders},
});

constexpr auto kTableWords =
    std::to_array<std::string_view>({"cell", "cellx", "intbl", "itap", "nestcell", "nestrow", "row", "trowd"});
// Groups that are of the whole document, or say nothing that is seen.
constexpr auto kHarmlessDestinations = std::to_array<std::string_view>(
    {"author",    "colortbl", "comment",   "company", "creatim",    "defchp",       "defpap",
     "doccomm",   "filetbl",  "generator", "info",    "keywords",   "latentstyles", "listoverridetable",
     "listtable", "mmathPr",  "revtbl",    "rsidtbl", "stylesheet", "themedata",    "xmlnstbl"});

template <std::size_t kCount>
std::string_view KeyOf(const std::array<KnownWord, kCount>& words, std::string_view name) {
  const auto* const found = std::ranges::find(words, name, &KnownWord::name);
  return found == words.end() ? std::string_view() : found->key;
}

bool IsUnset(std::string_view name, std::optional<int> number) {
  return name == "ulnone" || name == "nosupersub" || name == "ql" || (number == 0 && name != "slmult");
}

std::string WordOf(std::string_view name, std::optional<int> number) {
  return "\\" + std::string(name) + (number ? std::to_string(*number) : std::string());
}

std::string_view GroupAt(std::string_view rtf, std::string_view begin) {
  const std::size_t at = rtf.find(begin);
  return at == std::string_view::npos ? std::string_view() : rtf.substr(at, EndOfGroup(rtf.substr(at)).value_or(0));
}

}  // namespace

FormattedTextReader::FormattedTextReader(std::string_view rtf) {
  ReadFonts(GroupAt(rtf, "{\\fonttbl"));
  ReadColours(GroupAt(rtf, "{\\colortbl"));
}

// Each entry of the table is a group that begins with its number.
void FormattedTextReader::ReadFonts(std::string_view group) {
  for (std::size_t at = group.find('{', 1); at < group.size(); at = group.find('{', at)) {
    const std::string_view entry = group.substr(at, EndOfGroup(group.substr(at)).value_or(group.size() - at));
    at += entry.size();
    constexpr std::string_view kNumber = "{\\f";
    int number = 0;
    if (entry.starts_with(kNumber)) {
      const char* const begin = entry.data() + kNumber.size();
      const char* const end = entry.data() + entry.size() - 1;
      const auto [behind, error] = std::from_chars(begin, end, number);
      if (error == std::errc()) {
        std::string_view rest(behind, static_cast<std::size_t>(end - behind));
        rest.remove_suffix(rest.ends_with(';') ? 1 : 0);
        fonts_[number] = rest;
      }
    }
  }
}

void FormattedTextReader::ReadColours(std::string_view group) {
  constexpr std::string_view kBegin = "{\\colortbl";
  if (group.size() <= kBegin.size()) {
    return;
  }
  std::string colour;
  for (const char c : group.substr(kBegin.size(), group.size() - kBegin.size() - 1)) {
    if (c == ';') {
      colours_.push_back(std::exchange(colour, {}));
    } else if (c != ' ' && c != '\r' && c != '\n') {
      colour += c;
    }
  }
}

std::optional<FormattedText> FormattedTextReader::Take() {
  formats_.paragraphs.push_back(ParagraphNow());
  return isWhole_ ? std::optional(FormattedText(std::move(text_), std::move(formats_))) : std::nullopt;
}

SharedFormat FormattedTextReader::Shared(const FormatWords& words) {
  SharedFormat& shared = known_[words];
  if (!shared) {
    shared = std::make_shared<const FormatWords>(words);
  }
  return shared;
}

SharedFormat FormattedTextReader::ParagraphNow() {
  if (!state_.sharedParagraph) {
    state_.sharedParagraph = Shared(state_.paragraph);
  }
  return state_.sharedParagraph;
}

void FormattedTextReader::TakeUnit(const RtfUnit& unit) {
  if (unit.unit == u'\n') {
    return;  // of a line break, whose CR has been taken
  }
  if (!state_.sharedCharacters) {
    state_.sharedCharacters = Shared(state_.characters);
  }
  text_ += unit.unit;
  if (formats_.runs.empty() || formats_.runs.back().format != state_.sharedCharacters) {
    formats_.runs.push_back({0, state_.sharedCharacters});
  }
  ++formats_.runs.back().length;
  if (unit.unit == u'\r') {
    formats_.paragraphs.push_back(ParagraphNow());
  }
}

// The paragraph's format is that of the last line, which is taken at the end.
void FormattedTextReader::DropLastLineBreak() {
  text_.pop_back();
  state_.sharedParagraph = formats_.paragraphs.back();
  formats_.paragraphs.pop_back();
  if (--formats_.runs.back().length == 0) {
    formats_.runs.pop_back();
  }
}

void FormattedTextReader::TakeWord(std::string_view name, std::optional<int> number) {
  if (name == "deff") {
    defaultFont_ = number.value_or(0);
    TakeCharacterWord("f", "f", defaultFont_);
  } else if (name == "plain") {
    state_.characters.clear();
    TakeCharacterWord("f", "f", defaultFont_);
  } else if (name == "pard") {
    state_.paragraph.clear();
    state_.sharedParagraph.reset();
  } else if (const std::string_view character = KeyOf(kCharacterWords, name); !character.empty()) {
    TakeCharacterWord(character, name, number);
  } else if (const std::string_view paragraph = KeyOf(kParagraphWords, name); !paragraph.empty()) {
    TakeParagraphWord(paragraph, name, number);
  } else if (std::ranges::find(kTableWords, name) != kTableWords.end()) {
    isWhole_ = false;
  }
}

void FormattedTextReader::TakeCharacterWord(std::string_view key, std::string_view name, std::optional<int> number) {
  state_.sharedCharacters.reset();
  if (key == "f") {
    const auto font = fonts_.find(number.value_or(0));
    Set(state_.characters, key, font == fonts_.end() ? std::string() : font->second);
  } else if (key == "cf" || key == "cb" || key == "chcbpat" || key == "highlight") {
    const auto colour = static_cast<std::size_t>(std::max(number.value_or(0), 0));
    if (colour < colours_.size() && !colours_[colour].empty()) {
      Set(state_.characters, key, colours_[colour]);
    } else {
      Clear(state_.characters, key);
    }
  } else if (IsUnset(name, number)) {
    Clear(state_.characters, key);
  } else {
    Set(state_.characters, key, WordOf(name, number));
  }
}

void FormattedTextReader::TakeParagraphWord(std::string_view key, std::string_view name, std::optional<int> number) {
  state_.sharedParagraph.reset();
  if (key == kTabs || key == kBorders) {
    const auto found = std::ranges::find(state_.paragraph, key, &FormatWords::value_type::first);
    Set(state_.paragraph, key,
        (found == state_.paragraph.end() ? std::string() : found->second) + WordOf(name, number));
  } else if (IsUnset(name, number)) {
    Clear(state_.paragraph, key);
  } else {
    Set(state_.paragraph, key, WordOf(name, number));
  }
}

void FormattedTextReader::Set(FormatWords& words, std::string_view key, std::string value) {
  const auto at = std::ranges::lower_bound(words, key, {}, &FormatWords::value_type::first);
  if (at != words.end() && at->first == key) {
    at->second = std::move(value);
  } else {
    words.insert(at, {std::string(key), std::move(value)});
  }
}

void FormattedTextReader::Clear(FormatWords& words, std::string_view key) {
  std::erase_if(words, [key](const auto& word) { return word.first == key; });
}

void FormattedTextReader::OpenGroup() {
  outer_.push_back(state_);
}

void FormattedTextReader::CloseGroup() {
  if (outer_.size() > 1) {  // behind the last brace the last paragraph still has its format
    state_ = std::move(outer_.back());
    outer_.pop_back();
  }
}

void FormattedTextReader::TakeDestination(std::string_view name) {
  if (std::ranges::find(kHarmlessDestinations, name) == kHarmlessDestinations.end()) {
    isWhole_ = false;
  }
}

}  // namespace scrivanta
