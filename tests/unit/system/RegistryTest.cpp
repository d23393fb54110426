// The registry: data as it is read and written, files of it, changes and what takes them back.
#include <algorithm>

#include <gtest/gtest.h>

#include "support/MemoryRegistry.h"
#include "system/registry/RegistryChange.h"
#include "system/registry/RegistryData.h"
#include "system/registry/RegistryFile.h"
#include "system/registry/RegistrySearch.h"
#include "text/DocumentFormat.h"
#include "text/Encoding.h"

namespace scrivanta::testing {
namespace {

using namespace std::string_literals;

RegistryValue Value(std::u16string_view name, RegistryType type, std::string bytes) {
  return {.name = std::u16string(name), .type = type, .bytes = std::move(bytes)};
}

std::string Utf16File(std::u16string_view text) {
  return EncodeDocument(text, {.encoding = DocumentEncoding::kUtf16Le});
}

const std::u16string kKey = u"HKEY_CURRENT_USER\\Software\\甲";

class RegistryTest : public ::testing::Test {
 protected:
  RegistryTest() {
    registry.keys[u"HKEY_CURRENT_USER"];
    registry.keys[u"HKEY_CURRENT_USER\\Software"];
    registry.keys[kKey] = {TextValue(u"", u"默认"), TextValue(u"路径", u"C:\\a \"b\""),
                           Value(u"数", RegistryType::kDword, "\x0a\0\0\0"s)};
    registry.keys[kKey + u"\\子"] = {Value(u"b", RegistryType::kBinary, "\x01\xff")};
  }

  RegistryPlan Plan(const std::vector<RegistryChange>& changes) { return PlanRegistry(registry, changes, progress); }
  // Does it, and takes it back by the text of a file.
  void DoAndUndo(const std::vector<RegistryChange>& changes) {
    const auto before = registry.keys;
    const RegistryPlan plan = Plan(changes);
    const std::string undo = RegistryFileOf(plan.undo);
    ApplyRegistry(registry, plan.changes, progress);
    EXPECT_NE(registry.keys, before);
    ApplyRegistry(registry, ReadRegistryFile(undo), progress);
    const auto sorted = [](auto keys) {
      for (auto& [key, values] : keys) {
        std::ranges::sort(values, {}, &RegistryValue::name);
      }
      return keys;
    };
    EXPECT_EQ(sorted(registry.keys), sorted(before));
  }

  MemoryRegistry registry;
  NoProgress progress;
};

TEST(RegistryKeyNames, AreReadAsPeopleWriteThem) {
  EXPECT_EQ(RegistryKeyOf(u" [hkcu\\Software\\\\a b\\] "), u"HKEY_CURRENT_USER\\Software\\a b");
  EXPECT_EQ(RegistryKeyOf(u"计算机\\HKEY_LOCAL_MACHINE\\SYSTEM"), u"HKEY_LOCAL_MACHINE\\SYSTEM");
  EXPECT_EQ(RegistryKeyOf(u"hkey_users"), u"HKEY_USERS");
  EXPECT_EQ(RegistryKeyOf(u"Software\\HKCU2"), std::nullopt);
  EXPECT_EQ(RegistryKeyOf(u" "), std::nullopt);
  EXPECT_TRUE(IsInKey(u"HKEY_USERS\\A\\b", u"hkey_users\\a"));
  EXPECT_FALSE(IsInKey(u"HKEY_USERS\\Ab", u"HKEY_USERS\\A"));
}

TEST(RegistryData, IsShownAndReadBack) {
  struct Case {
    RegistryType type;
    std::string bytes;
    std::u16string shown;
    std::u16string edited;
  };
  const Case cases[] = {{RegistryType::kText, "a\0-N\0\0"s, u"a中", u"a中"},
                        {RegistryType::kDword, "\xff\xff\xff\xff"s, u"0xffffffff (4294967295)", u"4294967295"},
                        {RegistryType::kDwordBigEndian, "\0\0\0\x0a"s, u"0x0000000a (10)", u"10"},
                        {RegistryType::kQword, "\x01\0\0\0\0\0\0\x80"s, u"0x8000000000000001 (9223372036854775809)",
                         u"9223372036854775809"},
                        {RegistryType::kMultiText, "a\0\0\0b\0\0\0\0\0"s, u"a；b", u"a\r\nb\r\n"},
                        {RegistryType::kBinary, "\x01\xff"s, u"01 ff", u"01 ff"},
                        {static_cast<RegistryType>(0x20), "\x02"s, u"02", u"02"}};
  for (const Case& test : cases) {
    const RegistryValue value = Value(u"", test.type, test.bytes);
    EXPECT_EQ(ShowRegistryData(value), test.shown);
    EXPECT_EQ(EditRegistryData(value), test.edited);
    EXPECT_EQ(ParseRegistryData(test.type, test.edited), test.bytes);
  }
  EXPECT_EQ(ParseRegistryData(RegistryType::kDword, u" 0xA "), "\x0a\0\0\0"s);
  EXPECT_EQ(ParseRegistryData(RegistryType::kBinary, u"01,0A\r\n ff"), "\x01\x0a\xff"s);
  // A number of a wrong size is shown by its bytes.
  EXPECT_EQ(ShowRegistryData(Value(u"", RegistryType::kDword, "\x01\x02")), u"01 02");
  EXPECT_EQ(RegistryTypeName(static_cast<RegistryType>(0x20)), u"REG_0x00000020");
  EXPECT_THROW(ParseRegistryData(RegistryType::kDword, u"4294967296"), ExplainedError);
  EXPECT_THROW(ParseRegistryData(RegistryType::kQword, u"-1"), ExplainedError);
  EXPECT_THROW(ParseRegistryData(RegistryType::kDword, u""), ExplainedError);
  EXPECT_THROW(ParseRegistryData(RegistryType::kBinary, u"1 2"), ExplainedError);
  EXPECT_THROW(ParseRegistryData(RegistryType::kBinary, u"0g"), ExplainedError);
  EXPECT_THROW(ParseRegistryData(RegistryType::kBinary, u"012"), ExplainedError);
}

TEST_F(RegistryTest, FileIsThatOfTheSystemsEditor) {
  std::string bytes;
  for (int i = 0; i < 30; ++i) {
    bytes += static_cast<char>(i);
  }
  registry.keys[kKey + u"\\子"].push_back(Value(u"长", RegistryType::kBinary, bytes));
  registry.keys[kKey + u"\\子"].push_back(TextValue(u"x", u"%a%", RegistryType::kExpandText));
  const std::string file = RegistryFileOf(ContentOfKey(registry, kKey, progress));
  EXPECT_EQ(file, Utf16File(u"Windows Registry Editor Version 5.00\r\n\r\n"
                            u"[HKEY_CURRENT_USER\\Software\\甲]\r\n"
                            u"@=\"默认\"\r\n"
                            u"\"路径\"=\"C:\\\\a \\\"b\\\"\"\r\n"
                            u"\"数\"=dword:0000000a\r\n\r\n"
                            u"[HKEY_CURRENT_USER\\Software\\甲\\子]\r\n"
                            u"\"b\"=hex:01,ff\r\n"
                            u"\"长\"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,16,\\\r\n"
                            u"  17,18,19,1a,1b,1c,1d\r\n"
                            u"\"x\"=hex(2):25,00,61,00,25,00,00,00\r\n"));
  EXPECT_EQ(ReadRegistryFile(file), ContentOfKey(registry, kKey, progress));
}

TEST_F(RegistryTest, EveryValueComesBackFromItsFile) {
  std::vector<RegistryValue>& values = registry.keys[kKey];
  values = {Value(u"无尾", RegistryType::kText, "a\0"s),
            Value(u"断", RegistryType::kText, "a"),
            Value(u"空", RegistryType::kText, ""),
            Value(u"两", RegistryType::kText, "a\0\0\0b\0\0\0"s),
            TextValue(u"换行", u"a\r\nb;c"),
            Value(u"n\\\"", RegistryType::kNone, ""),
            Value(u"短", RegistryType::kDword, "\x01"),
            Value(u"q", RegistryType::kQword, "12345678"),
            Value(u"怪", static_cast<RegistryType>(0x77), "\x01"),
            TextValue(u"a=b]", u"[x]")};
  const std::vector<RegistryChange> content = ContentOfKey(registry, kKey, progress);
  EXPECT_EQ(ReadRegistryFile(RegistryFileOf(content)), content);
}

TEST(RegistryFile, IsReadInAllItsForms) {
  const std::vector<RegistryChange> read = ReadRegistryFile(Utf16File(
      u"Windows Registry Editor Version 5.00\r\n; note\r\n\r\n[HKCU\\a]\r\n\"x\" = \"1\" ; one\r\n"
      u"\"y\"=-\r\n@=hex(7):61,00,\\\r\n  00,00 ; end\r\n\"行\"=\"一\r\n二\"\r\n[-HKEY_CURRENT_USER\\b]\r\n"));
  const std::u16string a = u"HKEY_CURRENT_USER\\a";
  RegistryValue y;
  y.name = u"y";
  EXPECT_EQ(read, (std::vector<RegistryChange>{
                      {RegistryAction::kCreateKey, a},
                      {RegistryAction::kSetValue, a, TextValue(u"x", u"1")},
                      {RegistryAction::kDeleteValue, a, y},
                      {RegistryAction::kSetValue, a, Value(u"", RegistryType::kMultiText, "a\0\0\0"s)},
                      {RegistryAction::kSetValue, a, TextValue(u"行", u"一\r\n二")},
                      {RegistryAction::kDeleteKey, u"HKEY_CURRENT_USER\\b"}}));
  const std::vector<RegistryChange> old =
      ReadRegistryFile(Encode(Encoding::kGbk, u"REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\中]\r\n\"e\"=hex(2):d6,d0,00\r\n"));
  EXPECT_EQ(old[0].key, u"HKEY_CURRENT_USER\\中");
  EXPECT_EQ(old[1].value, TextValue(u"e", u"中", RegistryType::kExpandText));
}

TEST(RegistryFile, FaultNamesItsLine) {
  const std::u16string head = u"Windows Registry Editor Version 5.00\r\n\r\n";
  const std::u16string_view bad[] = {u"[HKCU\\a",
                                     u"[a]",
                                     u"[-HKCU]",
                                     u"\"x\"=\"1\"",
                                     u"[HKCU\\a]\r\nx=1",
                                     u"[HKCU\\a]\r\n\"x\"\"1\"",
                                     u"[HKCU\\a]\r\n\"x\"=dword:g",
                                     u"[HKCU\\a]\r\n\"x\"=hex(z):00",
                                     u"[HKCU\\a]\r\n\"x\"=hex:0",
                                     u"[HKCU\\a]\r\n\"x\"=\"1\"2",
                                     u"[HKCU\\a]\r\n\"x\"=\"1"};
  for (const std::u16string_view text : bad) {
    const std::u16string_view line = text.find(u'\n') == text.npos ? u"第3行" : u"第4行";
    try {
      ReadRegistryFile(Utf16File(head + std::u16string(text)));
      ADD_FAILURE() << Encode(Encoding::kUtf8, text);
    } catch (const ExplainedError& error) {
      EXPECT_NE(error.chinese().find(line), std::u16string::npos) << Encode(Encoding::kUtf8, error.chinese());
    }
  }
  EXPECT_THROW(ReadRegistryFile("x"), ExplainedError);
  EXPECT_THROW(ReadRegistryFile(""), ExplainedError);
}

TEST_F(RegistryTest, ChangesAreShownAndTakenBack) {
  const RegistryPlan plan = Plan({{RegistryAction::kCreateKey, kKey},
                                  {RegistryAction::kSetValue, kKey, TextValue(u"", u"默认")},
                                  {RegistryAction::kSetValue, kKey, TextValue(u"数", u"新")},
                                  {RegistryAction::kDeleteValue, kKey, TextValue(u"没有", u"")},
                                  {RegistryAction::kDeleteKey, kKey + u"\\子"},
                                  {RegistryAction::kSetValue, kKey + u"\\新\\键", TextValue(u"a", u"1")}});
  ASSERT_EQ(plan.rows.size(), 3U) << "what changes nothing is left out";
  EXPECT_EQ(plan.rows[0].before, u"REG_DWORD  0x0000000a (10)");
  EXPECT_EQ(plan.rows[0].after, u"REG_SZ  新");
  EXPECT_EQ(plan.rows[1].before, u"1个键，1个值");
  EXPECT_EQ(plan.rows[2].before, u"（没有）");

  DoAndUndo({{RegistryAction::kSetValue, kKey, TextValue(u"数", u"1")},
             {RegistryAction::kSetValue, kKey, TextValue(u"数", u"2")},
             {RegistryAction::kDeleteValue, kKey, TextValue(u"", u"")}});
  DoAndUndo({{RegistryAction::kCreateKey, kKey + u"\\新\\键"},
             {RegistryAction::kSetValue, kKey + u"\\新\\键", TextValue(u"a", u"1")}});
  DoAndUndo({{RegistryAction::kDeleteKey, kKey},
             {RegistryAction::kCreateKey, kKey},
             {RegistryAction::kSetValue, kKey, TextValue(u"", u"默认")},
             {RegistryAction::kSetValue, kKey, TextValue(u"加", u"1")},
             {RegistryAction::kCreateKey, kKey + u"\\乙"}});
}

TEST_F(RegistryTest, KeyThatCannotBeReadIsNotDeleted) {
  registry.closed.insert(kKey + u"\\子");
  const auto before = registry.keys;
  try {
    Plan({{RegistryAction::kDeleteKey, kKey}});
    ADD_FAILURE();
  } catch (const RegistryError& error) {
    EXPECT_EQ(error.reason(), u"没有权限");
    EXPECT_EQ(error.chinese(), u"注册表的这个键打不开：\n" + kKey + u"\\子\n没有权限");
  }
  EXPECT_EQ(registry.keys, before);
}

TEST_F(RegistryTest, SearchLooksAtNamesAndData) {
  registry.keys[kKey + u"\\锁"];
  registry.closed.insert(kKey + u"\\锁");
  const RegistryPlaces found = SearchRegistry(registry, u"HKEY_CURRENT_USER", u"甲", 10, progress);
  ASSERT_EQ(found.places.size(), 1U);
  EXPECT_TRUE(found.places[0].isKey && found.places[0].key == kKey);
  EXPECT_EQ(found.unreadable, 1U);
  EXPECT_EQ(SearchRegistry(registry, u"HKEY_CURRENT_USER", u"B", 10, progress).places.size(), 2U) << "a name, a text";
  const RegistryPlaces cut = SearchRegistry(registry, u"HKEY_CURRENT_USER", u"B", 1, progress);
  EXPECT_TRUE(cut.isCut && cut.places.size() == 1);
}

}  // namespace
}  // namespace scrivanta::testing
