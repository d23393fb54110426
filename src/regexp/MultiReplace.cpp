#include "regexp/MultiReplace.h"

#include <utility>

#include "regexp/Markers.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr std::size_t kPlacesPerReport = 1024;

std::size_t ReplaceLiterally(std::u16string& text, const LiteralFinder& find, std::u16string_view replacement,
                             Progress& progress) {
  std::u16string result;
  std::size_t copied = 0;  // of the text
  std::size_t count = 0;
  for (;;) {
    const std::size_t found = find.Find(text, copied, progress);
    if (found == LiteralFinder::kNotFound) {
      break;
    }
    result.append(text, copied, found - copied).append(replacement);
    copied = found + find.length();
    if (++count % kPlacesPerReport == 0) {
      progress.Report(copied, text.size());
    }
  }
  if (count > 0) {
    result.append(text, copied);
    text = std::move(result);
  }
  return count;
}

}  // namespace

std::vector<std::u16string> ItemsOfList(std::u16string_view list) {
  std::vector<std::u16string> items;
  for (;;) {
    const std::size_t end = list.find(u'|');
    items.emplace_back(list.substr(0, end));
    if (end == std::u16string_view::npos) {
      return items;
    }
    list.remove_prefix(end + 1);
  }
}

std::vector<MultiReplace::Pair> MultiReplace::PairUp(std::u16string_view findList, std::u16string_view replaceList) {
  std::vector<std::u16string> finds = ItemsOfList(findList);
  std::vector<std::u16string> replacements = ItemsOfList(replaceList);
  if (finds.size() != replacements.size()) {
    throw ExplainedError("the lists of texts to find and to put in their place differ in length",
                         u"寻找、替换个数不相等！");
  }
  std::vector<Pair> pairs;
  pairs.reserve(finds.size());
  for (std::size_t i = 0; i < finds.size(); ++i) {
    pairs.push_back({std::move(finds[i]), std::move(replacements[i])});
  }
  return pairs;
}

MultiReplace::MultiReplace(std::u16string_view findList, std::u16string_view replaceList, bool ignoreCase)
    : MultiReplace(PairUp(findList, replaceList), ignoreCase) {}

MultiReplace::MultiReplace(std::vector<Pair> pairs, bool ignoreCase) {
  NoProgress noProgress;
  for (Pair& pair : pairs) {
    if (pair.find.empty()) {
      continue;
    }
    Item item{LiteralFinder(pair.find, ignoreCase), std::move(pair.replacement), false};
    item.swaps = item.find.Find(item.replacement, 0, noProgress) != LiteralFinder::kNotFound;
    items_.push_back(std::move(item));
  }
}

std::size_t MultiReplace::Apply(std::u16string& text, Progress& progress) const {
  const LiteralFinder swapMarker(kSwapMarker, false);
  std::u16string result = text;
  std::size_t count = 0;
  for (const Item& item : items_) {
    count += ReplaceLiterally(result, item.find, item.swaps ? kSwapMarker : item.replacement, progress);
    if (item.swaps) {
      ReplaceLiterally(result, swapMarker, item.replacement, progress);
    }
  }
  text = std::move(result);
  return count;
}

}  // namespace scrivanta
