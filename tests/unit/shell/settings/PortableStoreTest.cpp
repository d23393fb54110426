#include <gtest/gtest.h>

#include "shell/settings/PortableStore.h"
#include "shell/settings/SettingsStore.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"

namespace scrivanta {
namespace {

TEST(PortableStore, IsAskedForByTheIniFileAlone) {
  const testing::TemporaryFolder folder;
  EXPECT_FALSE(IsPortable(IniFile(folder.path() / "absent.ini")));
  EXPECT_FALSE(IsPortable(IniFile(folder.path())));
  EXPECT_FALSE(IsPortable(IniFile(folder.Put("other.ini", "[Settings]\r\nSettingsHere = 1\r\n"))));
  EXPECT_FALSE(IsPortable(IniFile(folder.Put("off.ini", "[Portable]\r\nSettingsHere = 0\r\n"))));
  EXPECT_TRUE(
      IsPortable(IniFile(folder.Put("on.ini", "; \xB1\xE3\xD0\xAF\xB0\xE6\r\n[Portable]\r\nSettingsHere = 1\r\n"))));
}

TEST(PortableStore, KeepsBothStoresOfOneSectionApart) {
  const testing::TemporaryFolder folder;
  const IniFile ini(folder.Put("a.ini", "[Portable]\r\nSettingsHere = 1\r\n"));
  PortableStore registry(ini);
  SettingsStore settings(registry, ini);
  settings.Save(u"k", u"of the registry");
  settings.Save(u"k", u"of the file", Store::kIniFile);
  EXPECT_EQ(settings.Get(u"k"), u"of the registry");
  EXPECT_EQ(settings.Get(u"k", Store::kIniFile), u"of the file");
  EXPECT_FALSE(settings.Find(u"k", Store::kRegistry, kWindowSection).has_value());
  EXPECT_EQ(ReadWholeFile(ini.path()),
            "[Portable]\r\nSettingsHere = 1\r\n"
            "[Portable.FormSaveSetting]\r\nk = of the registry\r\n"
            "[FormSaveSetting]\r\nk = of the file\r\n");
}

}  // namespace
}  // namespace scrivanta
