#include <map>
#include <thread>

#include <gtest/gtest.h>

#include "shell/settings/IniFile.h"
#include "shell/settings/SettingsStore.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"

namespace scrivanta {
namespace {

class MapRegistry final : public RegistryStore {
 public:
  std::optional<std::u16string> Read(std::u16string_view section, std::u16string_view key) const override {
    const auto found = values.find({std::u16string(section), std::u16string(key)});
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override {
    values[{std::u16string(section), std::u16string(key)}] = value;
  }
  SettingEntries ReadAll(std::u16string_view section) const override {
    SettingEntries entries;
    for (const auto& [name, value] : values) {
      if (name.first == section) {
        entries.emplace(name.second, value);
      }
    }
    return entries;
  }

  std::map<std::pair<std::u16string, std::u16string>, std::u16string> values;
};

TEST(IniFile, KeepsTheEncodingOfTheFile) {
  const testing::TemporaryFolder folder;
  struct Case {
    std::string_view name;
    std::string before;
    std::string after;  // with the value of "a" changed to U+4E2D
  };
  const Case cases[] = {
      {"absent", "", "[s]\r\na = \xD6\xD0\r\n"},
      {"GBK, line ends as they come", "; \xCE\xC4\n[s]\r\na=1\r\n\xFF\n", "; \xCE\xC4\n[s]\r\na=\xD6\xD0\r\n\xFF\n"},
      {"UTF-8", "; \xE6\x96\x87\n[s]\na=1\n", "; \xE6\x96\x87\n[s]\na=\xE4\xB8\xAD\n"},
      {"UTF-8 with a mark", "\xEF\xBB\xBF[s]\r\na=1", "\xEF\xBB\xBF[s]\r\na=\xE4\xB8\xAD"},
      {"UTF-16", std::string("\xFF\xFE[\0s\0]\0\n\0a\0=\0\x31\0", 16),
       std::string("\xFF\xFE[\0s\0]\0\n\0a\0=\0\x2D\x4E", 16)},
  };
  for (const Case& one : cases) {
    const std::filesystem::path path = folder.path() / "a.ini";
    std::filesystem::remove(path);
    if (!one.before.empty()) {
      folder.Put("a.ini", one.before);
    }
    IniFile ini(path);
    ini.Write(u"s", u"a", u"中");
    EXPECT_EQ(ReadWholeFile(path), one.after) << one.name;
    EXPECT_EQ(ini.Read(u"s", u"a"), u"中") << one.name;
  }
}

// The two bytes of each of these characters make two of three bytes in UTF-8: written as GBK into a file that holds
// nothing else, they would be taken for something else.
TEST(IniFile, ReadsBackWhatLooksLikeAnotherEncoding) {
  const testing::TemporaryFolder folder;
  IniFile ini(folder.path() / "a.ini");
  ini.Write(u"s", u"a", u"浣犲ソ");
  EXPECT_EQ(ini.Read(u"s", u"a"), u"浣犲ソ");
  ini.Write(u"s", u"b", u"\U0001F600 \xD800");
  EXPECT_EQ(ini.Read(u"s", u"a"), u"浣犲ソ");
  EXPECT_EQ(ini.Read(u"s", u"b"), u"\U0001F600 \xD800");
}

TEST(IniFile, DoesNotWriteWhatIsThereAlready) {
  const testing::TemporaryFolder folder;
  const std::filesystem::path path = folder.Put("a.ini", "[s]\na=1");
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
  IniFile ini(path);
  EXPECT_NO_THROW(ini.Write(u"s", u"a", u"1"));
  EXPECT_THROW(ini.Write(u"s", u"a", u"2"), FileError);
  EXPECT_EQ(ReadWholeFile(path), "[s]\na=1");
}

TEST(IniFile, WritersDoNotLoseEachOthersKeys) {
  const testing::TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "a.ini";
  const auto writeMany = [&path](char16_t writer) {
    IniFile ini(path);
    for (char16_t number = 0; number < 40; ++number) {
      ini.Write(u"s", std::u16string{writer, static_cast<char16_t>(u'0' + number)}, u"v");
    }
  };
  std::thread other(writeMany, u'a');
  writeMany(u'b');
  other.join();
  for (const char16_t writer : {u'a', u'b'}) {
    for (char16_t number = 0; number < 40; ++number) {
      EXPECT_EQ(IniFile(path).Read(u"s", std::u16string{writer, static_cast<char16_t>(u'0' + number)}), u"v");
    }
  }
}

TEST(IniFile, ReadsAndWritesASectionAtOnce) {
  const testing::TemporaryFolder folder;
  const std::filesystem::path path = folder.Put("a.ini", "[s]\n; c = d\na=1\n[t]\na=2\n[s]\n b = x = y \nb = never\n");
  IniFile ini(path);
  EXPECT_EQ(ini.ReadAll(u"s"), (SettingEntries{{u"; c", u"d"}, {u"a", u"1"}, {u"b", u"x = y "}}));
  EXPECT_EQ(ini.ReadAll(u"absent"), SettingEntries());
  ini.WriteAll(u"s", {{u"a", u"1"}, {u"b", u"3"}, {u"e", u"\u4E2D"}});
  EXPECT_EQ(ReadWholeFile(path), "[s]\n; c = d\na=1\ne = \xD6\xD0\n[t]\na=2\n[s]\n b = 3\nb = never\n");
}

TEST(IniFile, GoesToTheUsersFolderWhereTheProgramsMayNotBeWritten) {
  const testing::TemporaryFolder folder;
  const std::filesystem::path program = folder.path() / "program";
  const std::filesystem::path user = folder.path() / "user";
  std::filesystem::create_directory(program);
  EXPECT_EQ(IniFile::Locate(program, "Scrivanta", user).path(), program / "Scrivanta.ini");
  EXPECT_TRUE(std::filesystem::is_empty(program));

  folder.Put("program/Scrivanta.ini", "[s]\na=1\n");
  EXPECT_EQ(IniFile::Locate(program, "Scrivanta", user).path(), program / "Scrivanta.ini");

  std::filesystem::permissions(program / "Scrivanta.ini", std::filesystem::perms::owner_read);
  IniFile ini = IniFile::Locate(program, "Scrivanta", user);
  EXPECT_EQ(ini.path(), user / "Scrivanta" / "Scrivanta.ini");
  EXPECT_EQ(ini.Read(u"s", u"a"), u"1") << "what the program came with";
  ini.Write(u"s", u"b", u"2");
  EXPECT_EQ(ReadWholeFile(ini.path()), "[s]\na=1\nb = 2\n");
  EXPECT_EQ(ReadWholeFile(program / "Scrivanta.ini"), "[s]\na=1\n");

  EXPECT_EQ(IniFile::Locate(folder.path() / "absent", "Scrivanta", user).path(), user / "Scrivanta" / "Scrivanta.ini");
}

TEST(SettingsStore, EncodesLineBreaksAndKnowsTheDefaultSection) {
  const testing::TemporaryFolder folder;
  MapRegistry registry;
  SettingsStore settings(registry, IniFile(folder.path() / "a.ini"));
  for (const Store store : {Store::kRegistry, Store::kIniFile}) {
    EXPECT_EQ(settings.Get(u"NeedWordS$", store), u"");
    EXPECT_FALSE(settings.Find(u"NeedWordS$", store));
    settings.Save(u"NeedWordS$", u"one\r\ntwo\r\n", store, u"");
    settings.Save(u"lone", u"\n a\r", store, u"Other.*");
    EXPECT_EQ(settings.Get(u"NeedWordS$", store), u"one\r\ntwo\r\n");
    EXPECT_EQ(settings.Get(u"NeedWordS$", store, u"FormSaveSetting"), u"one\r\ntwo\r\n");
    EXPECT_EQ(settings.Get(u"lone", store, u"Other.*"), u"\n a\r");
    EXPECT_FALSE(settings.Find(u"lone", store));
    EXPECT_EQ(settings.Entries(store), (SettingEntries{{u"NeedWordS$", u"one\r\ntwo\r\n"}}));
  }
  const std::u16string stored = registry.values[{u"FormSaveSetting", u"NeedWordS$"}];
  EXPECT_EQ(stored, u"one<#@#>two<#@#>");
  EXPECT_EQ(ReadWholeFile(folder.path() / "a.ini"),
            "[FormSaveSetting]\r\nNeedWordS$ = one<#@#>two<#@#>\r\n[Other.*]\r\nlone = <#000a#> a<#000d#>\r\n");
}

}  // namespace
}  // namespace scrivanta
