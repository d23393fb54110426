#include "search/RegularTest.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "regexp/RegExpExecute.h"
#include "search/EditSelection.h"
#include "search/TextRanges.h"
#include "text/DecimalText.h"
#include "text/LineText.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kForm = u"ScrivantaRegularTest";
constexpr std::u16string_view kSection = u"HistoryRegularPattern";
constexpr std::size_t kKeyDigits = 5;
// Coloured between two looks at the events of the window.
constexpr std::size_t kRangesAtOnce = 100;
constexpr TextColours kMatchColours{.text = 0x0000FF, .background = 0x00FFFF};  // red on yellow

constexpr std::array<std::u16string_view, 5> kExamples = {
    u"'功能：[\\W\\w]+?(^Public Function |^Public Sub ).*?$",
    u"'功能：.*?$|(^Public Function |^Public Sub )[\\W\\w]+?\\).*?$",
    u"Win.*?.bas",
    u"NumX._AB.bas",
    u"^.*?$",
};

// "00000", "00001" ...
std::u16string KeyOf(std::size_t number) {
  const std::u16string digits = DecimalText(number);
  return std::u16string(kKeyDigits - std::min(digits.size(), kKeyDigits), u'0') + digits;
}

bool IsNumber(std::u16string_view key) {
  return std::all_of(key.begin(), key.end(), IsDigit);
}

}  // namespace

void RegularTest::Load() {
  stored_ = workbench_.settings().Entries(Store::kIniFile, kSection);
  std::erase_if(stored_, [](const auto& entry) { return !IsNumber(entry.first); });
  std::vector<std::u16string> items;
  for (const auto& [key, item] : stored_) {
    if (!item.empty()) {
      items.push_back(item);
    }
  }
  history_ = ComboHistory(std::move(items));
}

void RegularTest::Save() {
  // Keys behind the last item are emptied.
  for (auto& [key, item] : stored_) {
    item.clear();
  }
  std::size_t number = 0;
  for (const std::u16string& item : history_.items()) {
    if (!item.empty()) {
      stored_[KeyOf(number++)] = item;
    }
  }
  workbench_.settings().SaveAll(stored_, Store::kIniFile, kSection);
}

void RegularTest::Open(RegularTestView& view) {
  Load();
  for (const std::u16string_view example : kExamples) {
    history_.AppendMissing(example);
  }
  view.SetPatternBox(history_.items().front(), history_.items());
  if (const auto place = ReadDialogPlace(workbench_.settings(), kForm)) {
    view.SetPlace(*place);
  }
}

void RegularTest::Close(const RegularTestView& view) {
  SaveDialogPlace(workbench_.settings(), kForm, view.Place());
}

void RegularTest::Reload(RegularTestView& view) {
  Load();
  view.SetPatternBox(u"", history_.items());
}

void RegularTest::OpenIniFile() {
  workbench_.desktop().OpenWithDefaultProgram(workbench_.folders().iniFile);
}

void RegularTest::FilterHistory(RegularTestView& view) {
  const std::u16string keyword = workbench_.prompts().Input({.prompt = u"输入要置前的条目关键字"});
  if (!keyword.empty()) {
    history_.MoveToFront(keyword);
    view.SetPatternBox(view.PatternBox(), history_.items());
  }
}

void RegularTest::Test(RegularTestView& view) {
  const std::u16string pattern = view.PatternBox();
  if (!pattern.empty()) {
    history_.AppendMissing(pattern);
  }
  Save();
  view.SetPatternBox(pattern, history_.items());
  if (pattern.empty()) {
    return;
  }
  std::size_t found = 0;
  {
    const auto work = workbench_.StartWork();
    std::u16string text = workbench_.editor().Text();
    const MatchList matches = RegExpExecute(workbench_.regExpEngine(), text, pattern, kNoReplacement,
                                            {.multiLine = true, .global = true, .ignoreCase = true}, work->progress());
    TakeColoursAway(text, work->progress());
    if (matches.found()) {
      found = matches.upperBound();
      std::vector<TextRange> ranges;
      ranges.reserve(found);
      for (std::size_t number = 1; number <= found; ++number) {
        ranges.push_back(
            {{static_cast<std::size_t>(matches[number].FirstIndex)}, static_cast<std::size_t>(matches[number].Length)});
      }
      const TextRange last = ranges.back();
      colouredLength_ = text.size();
      Colour(MergeRanges(std::move(ranges)), work->progress());
      setRtxtColor(workbench_.editor(), last, kMatchColours);
    }
  }
  workbench_.prompts().Ask({.text = u"发现 " + DecimalText(found) + u" 次。", .systemModal = true});
}

// Takes away what the last test has coloured; where the text is another one now, all colours.
void RegularTest::TakeColoursAway(std::u16string_view text, Progress& progress) {
  if (coloured_.empty()) {
    return;
  }
  if (text.size() != colouredLength_) {
    const TextRange all{{0}, text.size()};
    workbench_.editor().SetColours({&all, 1}, {});
    coloured_.clear();
  }
  const std::size_t count = coloured_.size();
  while (!coloured_.empty()) {  // what is left when it is interrupted, the next test takes away
    const std::size_t left = coloured_.size() - std::min(kRangesAtOnce, coloured_.size());
    workbench_.editor().SetColours(std::span(coloured_).subspan(left), {});
    coloured_.resize(left);
    progress.Report(count - left, count);
  }
}

void RegularTest::Colour(const std::vector<TextRange>& ranges, Progress& progress) {
  const std::span<const TextRange> all(ranges);
  for (std::size_t done = 0; done < all.size(); done += kRangesAtOnce) {
    const auto some = all.subspan(done, std::min(kRangesAtOnce, all.size() - done));
    workbench_.editor().SetColours(some, kMatchColours);
    coloured_.insert(coloured_.end(), some.begin(), some.end());
    progress.Report(done + some.size(), all.size());
  }
}

}  // namespace scrivanta
