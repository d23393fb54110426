#include <gtest/gtest.h>

#include "database/JetDriver.h"
#include "database/TypeFinder.h"
#include "database/ValueText.h"
#include "text/Encoding.h"

namespace scrivanta::testing {
namespace {

TEST(TypeFinder, ChoosesOnlyWhatComesBackAsItWas) {
  struct Case {
    std::vector<std::u16string> values;
    ColumnType type;
  };
  const Case cases[] = {
      {{}, {ColumnKind::kText, 0, 0}},
      {{u"1", u"-20", u"0"}, {ColumnKind::kInteger, 2, 0}},
      {{u"13800138000"}, {ColumnKind::kInteger, 11, 0}},
      {{u"1", u"007"}, {ColumnKind::kText, 3, 0}},
      {{u"+1"}, {ColumnKind::kText, 2, 0}},
      {{u"-0"}, {ColumnKind::kText, 2, 0}},
      {{u" 1"}, {ColumnKind::kText, 2, 0}},
      {{u"１"}, {ColumnKind::kText, 1, 0}},
      {{u"1.5", u"2", u"0.001"}, {ColumnKind::kReal, 0, 0}},
      {{u"100000", u"0.1"}, {ColumnKind::kReal, 0, 0}},
      {{u"9007199254740993", u"0.5"}, {ColumnKind::kText, 16, 0}},
      {{u"1.50", u"2.25"}, {ColumnKind::kDecimal, 3, 2}},
      {{u"1.50", u"2"}, {ColumnKind::kText, 4, 0}},
      {{u"123456789012345678901234567890"}, {ColumnKind::kDecimal, 30, 0}},
      {{u"1e5"}, {ColumnKind::kText, 3, 0}},
      {{u"1850-02-28", u"2024-02-29"}, {ColumnKind::kDate, 0, 0}},
      {{u"2023-02-29"}, {ColumnKind::kText, 10, 0}},
      {{u"2024-1-2"}, {ColumnKind::kText, 8, 0}},
      {{u"1850-02-28 23:59:59"}, {ColumnKind::kDateTime, 0, 0}},
      {{u"1850-02-28 24:00:00"}, {ColumnKind::kText, 19, 0}},
      {{u"2024-01-02", u"2024-01-02 00:00:00"}, {ColumnKind::kText, 19, 0}},
  };
  for (const Case& c : cases) {
    TypeFinder finder;
    for (const std::u16string& value : c.values) {
      finder.Look(value);
    }
    EXPECT_EQ(finder.Found(), c.type) << (c.values.empty() ? "" : Encode(Encoding::kUtf8, c.values.back()));
  }
}

TEST(ValueText, WhatAColumnTakes) {
  struct Case {
    ColumnKind kind;
    std::u16string text;
    bool fits;
  };
  const Case cases[] = {
      {ColumnKind::kInteger, u"9223372036854775807", true},
      {ColumnKind::kInteger, u"9223372036854775808", false},
      {ColumnKind::kInteger, u"+7", true},
      {ColumnKind::kInteger, u"+-7", false},
      {ColumnKind::kInteger, u"1.0", false},
      {ColumnKind::kInteger, u"\u0131", false},
      {ColumnKind::kInteger, u"\u0131\u0331", false},
      {ColumnKind::kReal, u"-.5e-3", true},
      {ColumnKind::kReal, u".", false},
      {ColumnKind::kReal, u"1e", false},
      {ColumnKind::kReal, u"1,5", false},
      {ColumnKind::kDecimal, u"00012.50", true},
      {ColumnKind::kDate, u"0001-01-01", true},
      {ColumnKind::kDate, u"0000-01-01", false},
      {ColumnKind::kDateTime, u"2024-01-31T08:30", true},
      {ColumnKind::kDateTime, u"2024-01-31 08:30:00.", false},
      {ColumnKind::kDateTime, u"2024-01-31 08:30:00.123456+08:00", true},
      {ColumnKind::kBinary, u"0x00ff", true},
      {ColumnKind::kBinary, u"0x0", false},
      {ColumnKind::kBinary, u"00ff", false},
      {ColumnKind::kText, u"\xD800", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Fits(c.kind, c.text), c.fits) << Encode(Encoding::kUtf8, c.text);
  }
}

TEST(JetDriver, TheBestThatIsThere) {
  const std::u16string both = u"Microsoft Access Driver (*.mdb, *.accdb)";
  const std::u16string old = u"Microsoft Access Driver (*.mdb)";
  EXPECT_EQ(ChooseJetDriver({u"SQL Server", old, both}, "a.mdb"), both);
  EXPECT_EQ(ChooseJetDriver({old}, "a.MDB"), old);
  EXPECT_EQ(ChooseJetDriver({old}, "a.accdb"), std::nullopt);
  EXPECT_EQ(ChooseJetDriver({}, "a.mdb"), std::nullopt);
  EXPECT_TRUE(IsJetFile("a.AccDb"));
  EXPECT_FALSE(IsJetFile("mdb"));
  EXPECT_EQ(JetConnectionString(old, "a.mdb", u"p}w;"),
            u"DRIVER={Microsoft Access Driver (*.mdb)};DBQ=a.mdb;PWD={p}}w;}");
}

}  // namespace
}  // namespace scrivanta::testing
