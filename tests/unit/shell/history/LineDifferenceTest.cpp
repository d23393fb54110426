#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "shell/history/LineDifference.h"

namespace scrivanta {
namespace {

std::size_t CostOfAll(const std::vector<ControlEdit>& edits) {
  std::size_t cost = 0;
  for (const ControlEdit& edit : edits) {
    cost += CostOf(edit);
  }
  return cost;
}

void ExpectTheSame(const ControlEdit& whole, const std::vector<ControlEdit>& edits) {
  std::u16string text = std::u16string(whole.start.value, u'.') + whole.removed + u"\r.";
  const std::u16string before = text;
  for (const ControlEdit& edit : edits) {
    ASSERT_EQ(text.substr(edit.start.value, edit.removed.size()), edit.removed);
    text.replace(edit.start.value, edit.removed.size(), edit.inserted);
  }
  ASSERT_EQ(text, std::u16string(whole.start.value, u'.') + whole.inserted + u"\r.");
  for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
    text.replace(edit->start.value, edit->inserted.size(), edit->removed);
  }
  ASSERT_EQ(text, before);
}

TEST(LineDifference, KeepsWhatALineCommandReallyChanges) {
  std::vector<std::u16string> lines;
  for (char16_t number = 0; number < 2000; ++number) {
    lines.push_back(std::u16string(u"a line with some text, number ") + static_cast<char16_t>(0x4E00 + number) + u"\r");
  }
  std::u16string all;
  std::u16string withoutSome;
  std::u16string changedSome;
  std::u16string backwards;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    all += lines[i];
    withoutSome += i % 100 == 7 ? std::u16string() : lines[i];
    changedSome += i % 100 == 7 ? u"  " + lines[i] : lines[i];
    backwards.insert(0, lines[i]);
  }
  const auto split = [&all](const std::u16string& text, std::size_t start) {
    const ControlEdit whole{{start}, all, text};
    std::vector<ControlEdit> edits = SplitByLines(whole);
    ExpectTheSame(whole, edits);
    return edits;
  };
  EXPECT_EQ(split(withoutSome, 5).size(), 20U);
  EXPECT_EQ(split(changedSome, 0).size(), 20U);
  EXPECT_LT(CostOfAll(split(changedSome, 0)), 4000U);
  EXPECT_EQ(split(u"a header\r" + withoutSome + u"\rand a report\r", 3).size(), 22U);
  EXPECT_LE(split(backwards, 3).size(), 2U);
}

TEST(LineDifference, SplitsRandomEditsIntoWhatDoesTheSame) {
  std::mt19937 random(5);
  const auto below = [&random](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
  };
  for (int round = 0; round < 500; ++round) {
    const std::size_t vocabulary = 1 + below(30);
    std::vector<std::u16string> lines;
    for (std::size_t i = below(60); i > 0; --i) {
      lines.push_back(std::u16string(below(12), static_cast<char16_t>(u'a' + below(vocabulary))) + u'\r');
    }
    const auto join = [&lines] {
      std::u16string text;
      for (const std::u16string& line : lines) {
        text += line;
      }
      return text;
    };
    const std::u16string removed = join();
    for (std::size_t i = below(20); i > 0 && !lines.empty(); --i) {
      const std::size_t at = below(lines.size());
      switch (below(3)) {
        case 0:
          lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
          break;
        case 1:
          std::swap(lines[at], lines[below(lines.size())]);
          break;
        default:
          lines[at].insert(0, below(2) == 0 ? u"\U0001F600" : u"x\r");
      }
    }
    const ControlEdit whole{{below(3)}, removed, join() + std::u16string(below(2), u'e')};
    const std::vector<ControlEdit> edits = SplitByLines(whole);
    EXPECT_LE(CostOfAll(edits), CostOf(whole));
    ExpectTheSame(whole, edits);
    if (HasFatalFailure()) {
      return;
    }
  }
}

}  // namespace
}  // namespace scrivanta
