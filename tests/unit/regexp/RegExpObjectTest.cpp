#include <gtest/gtest.h>

#include "regexp/RegExpErrors.h"
#include "regexp/RegExpExecute.h"
#include "regexp/RegExpObject.h"

namespace scrivanta {
namespace {

// An object with the matches of the built-in engine.
class FakeObject final : public RegExpObject {
 public:
  void Execute(std::u16string_view pattern, RegExpOptions options, std::u16string_view text,
               const RegExpVisitor& visit) override {
    NoProgress progress;
    BuiltInRegExpEngine().Compile(pattern, options)->Scan(text, 0, visit, progress);
  }
};

class FakeSource final : public RegExpObjectSource {
 public:
  explicit FakeSource(int failures) : failures_(failures) {}

  std::unique_ptr<RegExpObject> Create() override {
    calls += 'c';
    return failures_-- > 0 ? nullptr : std::make_unique<FakeObject>();
  }
  void Register() override { calls += 'r'; }

  std::string calls;

 private:
  int failures_;
};

TEST(RegExpObject, IsRegisteredOnceWhenItCannotBeMade) {
  struct Case {
    int failures;
    std::string calls;
  };
  for (const Case& c : {Case{0, "c"}, Case{1, "crc"}, Case{2, "crc"}}) {
    FakeSource source(c.failures);
    try {
      EXPECT_NE(EnsureRegExpObject(source), nullptr);
      EXPECT_LT(c.failures, 2);
    } catch (const RegExpObjectMissing& error) {
      EXPECT_EQ(c.failures, 2);
      EXPECT_EQ(error.chinese(), u"不能注册或无文件：vbscript.dll");
    }
    EXPECT_EQ(source.calls, c.calls);
  }
}

TEST(RegExpObject, ServesAsAnEngine) {
  FakeSource source(0);
  const RegExpObjectEngine engine(source);
  NoProgress progress;
  std::u16string text = u"ab1 AB2";
  const MatchList matches =
      RegExpExecute(engine, text, u"b(\\d)", u"-", {.global = true, .ignoreCase = true}, progress);
  EXPECT_EQ(matches.upperBound(), 2U);
  EXPECT_EQ(text, u"a- A-");

  std::vector<std::size_t> starts;
  const auto regExp = engine.Compile(u"(.)", {});
  EXPECT_EQ(regExp->groupCount(), 1U);
  regExp->Scan(
      u"abcde", 2,
      [&starts](const RegExpMatch& match) {
        starts.push_back(match.start);
        return starts.size() < 2;
      },
      progress);
  EXPECT_EQ(starts, (std::vector<std::size_t>{2, 3}));
}

TEST(RegExpObject, LeavesTextAndObjectAloneWhenItCannotWork) {
  FakeSource source(2);
  const RegExpObjectEngine engine(source);
  NoProgress progress;
  std::u16string text = u"ab";
  EXPECT_THROW(RegExpExecute(engine, text, u"(a", u"x", {}, progress), RegExpSyntaxError);
  EXPECT_EQ(source.calls, "");
  EXPECT_THROW(RegExpExecute(engine, text, u"a", u"x", {}, progress), RegExpObjectMissing);
  EXPECT_EQ(text, u"ab");
}

}  // namespace
}  // namespace scrivanta
