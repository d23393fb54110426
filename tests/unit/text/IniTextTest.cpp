#include <iterator>
#include <map>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/DifferentPart.h"
#include "text/IniText.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kByHand =
    u"; comment\r\n\r\n"
    u"[One]\r\n"
    u"  key=first\r\n"
    u"$.*+?(a)[b]{2}^|\\ =   literal \r\n"
    u"key = never read\r\n"
    u"; of the next section\r\n\r\n"
    u" [Two] \r\n"
    u"key = a = \"b\"; c  \r\n"
    u"empty =\r\n"
    u"[One]\r\n"
    u"again = 1";

TEST(IniText, ReadsWhatAPersonHasWritten) {
  const IniText ini{std::u16string(kByHand)};
  struct Case {
    std::u16string section;
    std::u16string key;
    std::optional<std::u16string> value;
  };
  const Case cases[] = {
      {u"One", u"key", u"first"},
      {u"One", u"$.*+?(a)[b]{2}^|\\", u"literal "},
      {u"One", u"again", u"1"},
      {u"One", u"k.y", std::nullopt},
      {u"One", u"ke", std::nullopt},
      {u"One", u"Key", std::nullopt},
      {u"Two", u"key", u"a = \"b\"; c  "},
      {u"Two", u"empty", u""},
      {u"Two", u"again", std::nullopt},
      {u"T.o", u"key", std::nullopt},
      {u"Three", u"key", std::nullopt},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ini.Find(one.section, one.key), one.value) << std::string(one.key.begin(), one.key.end());
  }
  EXPECT_EQ(IniText(u"[a]\nk = v\n[b]\rk = w\r").Find(u"b", u"k"), u"w");
}

TEST(IniText, ChangesNothingButTheEntry) {
  struct Case {
    std::u16string before;
    std::u16string section;
    std::u16string key;
    std::u16string value;
    std::u16string after;
  };
  const Case cases[] = {
      {u"", u"s", u"k", u"v", u"[s]\r\nk = v\r\n"},
      {u"[s]", u"s", u"k", u"v", u"[s]\r\nk = v\r\n"},
      {u"[s]\nk=1", u"s", u"k", u"v", u"[s]\nk=v"},
      {u"; c\n", u"s", u"k", u"v", u"; c\n[s]\nk = v\n"},
      {u"[s]\r\n  k  =   1\r\nk = 2\r\n", u"s", u"k", u"v", u"[s]\r\n  k  =   v\r\nk = 2\r\n"},
      {u"[s]\r\na=1\r\n\r\n; next\r\n[t]\r\n", u"s", u"k", u"v", u"[s]\r\na=1\r\nk = v\r\n\r\n; next\r\n[t]\r\n"},
      {u"[t]\r\nk=1\r\n[s]\r\n", u"s", u"k", u"v", u"[t]\r\nk=1\r\n[s]\r\nk = v\r\n"},
      {u"[s]\r\na=1\r\n[s]\r\nk=2\r\n", u"s", u"k", u"v", u"[s]\r\na=1\r\n[s]\r\nk=v\r\n"},
      {u"[s]\r\na=1\r\n[s]\r\nb=2\r\n", u"s", u"k", u"v", u"[s]\r\na=1\r\nk = v\r\n[s]\r\nb=2\r\n"},
      {u"", u"s", u"[k]+", u"$&", u"[s]\r\n[k]+ = $&\r\n"},
      {u"", u"s", u"[k", u"v]", u"[s]\r\n<#005b#>k = v]\r\n"},
      {u"[s]\r\n[k = v\r\n", u"s", u"[k", u"v]", u"[s]\r\n<#005b#>k = v]\r\n"},
      {u"", u"s", u"\t[k", u"v]", u"[s]\r\n<#0009#>[k = v]\r\n"},
      {u"", u"s", u" a=b ", u"  v ", u"[s]\r\n<#0020#>a<#003d#>b<#0020#> = <#0020#> v \r\n"},
      {u"", u"s", u"k", u"<#0020#><#@#>\n", u"[s]\r\nk = <#003c#>#0020#><#@#><#000a#>\r\n"},
  };
  for (const Case& one : cases) {
    IniText ini(one.before);
    ini.Set(one.section, one.key, one.value);
    EXPECT_EQ(ini.text(), one.after);
    EXPECT_EQ(ini.Find(one.section, one.key), one.value);
  }
}

// Entries of any section, key and value are read back as they were written, whatever else there is, and the rest of the
// text stays.
TEST(IniText, KeepsRandomEntriesApart) {
  std::mt19937 random(11);
  const auto below = [&random](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
  };
  const auto someText = [&below](std::size_t most) {
    constexpr char16_t kUnits[] = u"ab  ==[]\r\n;#<>0中\"$\xD83D\xDE00\t";  // the closing NUL is one of them
    std::u16string text;
    for (std::size_t i = below(most + 1); i > 0; --i) {
      text += below(12) == 0 ? std::u16string(u"<#0020#>") : std::u16string(1, kUnits[below(std::size(kUnits))]);
    }
    return text;
  };
  for (int round = 0; round < 100; ++round) {
    IniText ini{below(2) == 0 ? std::u16string(kByHand) : std::u16string()};
    std::map<std::pair<std::u16string, std::u16string>, std::u16string> model;
    for (int step = 0; step < 30; ++step) {
      const std::u16string section = someText(2);
      const std::u16string key = someText(3);
      const std::u16string value = someText(6);
      const std::u16string before = ini.text();
      const bool isNew = !ini.Find(section, key);
      ini.Set(section, key, value);
      const std::u16string_view removed = testing::DifferentPart<std::u16string_view>(before, ini.text());
      ASSERT_EQ(removed.find_first_of(u"\r\n"), std::u16string_view::npos);
      ASSERT_TRUE(removed.empty() || !isNew);
      model[{section, key}] = value;
      for (const auto& [name, kept] : model) {
        ASSERT_EQ(ini.Find(name.first, name.second), kept);
      }
    }
    for (const auto& [name, kept] : model) {
      const IniEntries entries = ini.Entries(name.first);
      ASSERT_TRUE(entries.contains(name.second));
      ASSERT_EQ(entries.at(name.second), kept);
    }
  }
}

}  // namespace
}  // namespace scrivanta
