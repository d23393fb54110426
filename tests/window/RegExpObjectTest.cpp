// The platform's object for patterns: that it is found and spoken to, not what it makes of a pattern.
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "regexp/RegExpErrors.h"
#include "regexp/ScrivantaRegExpObject.h"
#include "shell/window/FrmOptionsControls.h"
#include "win/ComApartment.h"
#include "win/Registry.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

constexpr wchar_t kProgIdKey[] = L"Software\\Classes\\VBScript.RegExp";

TEST(RegExpObject, FindsMatchesWithTheirGroups) {
  const ComApartment apartment;
  ScrivantaRegExpObjectSource source;
  const RegExpObjectEngine engine(source);
  NoProgress progress;
  struct Found {
    std::size_t start;
    std::u16string value;
    std::vector<std::optional<std::u16string>> groups;

    bool operator==(const Found&) const = default;
  };
  std::vector<Found> found;
  const std::u16string text = u"中a1\nB2";
  engine.Compile(u"^.?([ab])(\\d)", {.ignoreCase = true, .multiLine = true})
      ->Scan(
          text, 0,
          [&found](const RegExpMatch& match) {
            found.push_back({match.start, std::u16string(match.value), {match.groups.begin(), match.groups.end()}});
            return true;
          },
          progress);
  EXPECT_EQ(found, (std::vector<Found>{{0, u"中a1", {u"a", u"1"}}, {4, u"B2", {u"B", u"2"}}}));
  EXPECT_FALSE(engine.Compile(u"A", {})->Matches(text, progress));
  EXPECT_THROW(engine.Compile(u"(", {}), RegExpSyntaxError);
}

TEST(RegExpObject, IsRegisteredAgainWhenTheSystemHasForgottenIt) {
  const ComApartment apartment;
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProgIdKey);
  ScrivantaRegExpObjectSource source;
  EXPECT_EQ(source.Create(), nullptr);
  EXPECT_NE(EnsureRegExpObject(source), nullptr);
}

class RegExpObjectOption : public WindowTest {
 protected:
  RegExpObjectOption() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Scrivanta"); }
  ~RegExpObjectOption() override { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Scrivanta"); }
};

TEST_F(RegExpObjectOption, LetsTheCommandsUseTheObject) {
  app.Start();
  app.Editor().Insert(u"a1 b22");
  app.Menu("mnuOptions");
  DialogDriver dialog = app.ExpectDialog(u"选项");
  EXPECT_FALSE(dialog.IsChecked(ChkRegExpObject));
  dialog.Press(ChkRegExpObject).Press(CmdOK);
  dialog.WaitUntilGone();
  app.Settle();
  EXPECT_EQ(ReadRegistryText(u"Software\\Scrivanta\\Settings", u"RegExpObject"), u"1");
  app.Menu("mnuRegGet");
  app.AnswerInput({.prompt = u"输入要寻找的字串（正则表达式）"}, u"\\d+");
  app.ExpectText(u"1\r\n22");
}

}  // namespace
}  // namespace scrivanta
