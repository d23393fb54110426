#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "support/DifferentPart.h"
#include "text/DocumentFormat.h"
#include "text/IniText.h"

namespace scrivanta {
namespace {

// Two entries, made of the bytes themselves, are set in the bytes taken as an ini file.
void FuzzIni(std::string_view bytes) {
  const DecodedDocument file = DecodeAsItStands(bytes);
  EXPECT_EQ(EncodeDocument(file.text, file.format), bytes);
  const std::u16string_view before = file.text;
  const std::u16string_view section = before.substr(before.size() / 4, 2);
  const std::u16string_view key = before.substr(before.size() / 3, 3);
  const std::u16string_view value = before.substr(before.size() / 2, 8);

  IniText ini(file.text);
  const bool isNew = !ini.Find(section, key);
  ini.Set(section, key, value);
  EXPECT_EQ(ini.Find(section, key), value);
  const std::u16string_view removed = testing::DifferentPart(before, std::u16string_view(ini.text()));
  EXPECT_EQ(removed.find_first_of(u"\r\n"), std::u16string_view::npos);
  EXPECT_TRUE(removed.empty() || !isNew);
  const std::string after = EncodeDocument(ini.text(), file.format);
  if (file.format.encoding == DocumentEncoding::kGbk) {
    EXPECT_EQ(testing::DifferentPart(bytes, std::string_view(after)).find_first_of("\r\n"), std::string_view::npos);
  }

  const std::optional<std::u16string> other = ini.Find(section, u"key");
  ini.Set(u"One", u"new key", value);
  EXPECT_EQ(ini.Find(u"One", u"new key"), value);
  EXPECT_EQ(ini.Find(section, key), value);
  EXPECT_EQ(ini.Find(section, u"key"), other);
}

TEST(Fuzz, Ini) {
  static constexpr std::string_view kInputs[] = {
      "",
      "; comment\r\n[One]\r\nkey = value\r\n\r\n[Two]\r\n  key=\xD6\xD0\xCE\xC4 \r\n[One]\r\nlast = 1",
      "[One]\nkey = <#0020#>a<#@#>b\n",
      "\xEF\xBB\xBF[\xE4\xB8\xAD]\nkey = \xE6\x96\x87\n",
  };
  static constexpr std::string_view kTokens[] = {
      "\r\n", "\r", "\n", "[", "]", "=", " = ", "key", "[One]", "<#", "#>", "<#000d#>", "<#005b#>", "\x81", " ",
  };
  RunFuzz(FuzzIni, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
