#include <map>
#include <set>

#include <gtest/gtest.h>

#include "support/ScriptedWorkbench.h"
#include "support/TemporaryFolder.h"
#include "system/FileTimesDialog.h"
#include "system/SystemCommands.h"
#include "system/UndoFiles.h"
#include "text/Bytes.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta::testing {
namespace {

using std::chrono::hours;
using Kind = FileTimeKind;

// A file system that keeps all three times, and a folder of it that nobody may change.
class MemoryTimes final : public FileTimesStore {
 public:
  FileTimes Read(const std::filesystem::path& path) const override {
    const auto found = files.find(path);
    if (found == files.end()) {
      throw FileError(path, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    return found->second;
  }
  void Write(const std::filesystem::path& path, const FileTimes& times) const override {
    if (refused.contains(path)) {
      throw FileError(path, std::make_error_code(std::errc::permission_denied));
    }
    for (const Kind kind : kFileTimeKinds) {
      if (times[kind]) {
        files[path][kind] = times[kind];
      }
    }
  }

  mutable std::map<std::filesystem::path, FileTimes> files;
  std::set<std::filesystem::path> refused;
};

// Eight hours before UTC's clock, nine in the summer of 1988.
class ChinaZone final : public TimeZone {
 public:
  LocalFileMoment ToLocal(FileMoment moment) const override {
    return LocalFileMoment(moment.time_since_epoch() + Offset(moment.time_since_epoch()));
  }
  FileMoment FromLocal(LocalFileMoment moment) const override {
    return FileMoment(moment.time_since_epoch() - Offset(moment.time_since_epoch()));
  }

 private:
  static hours Offset(FileTicks sinceEpoch) {
    const FileMoment moment(sinceEpoch);
    const bool summer = moment >= std::chrono::sys_days(std::chrono::year(1988) / 4 / 17) &&
                        moment < std::chrono::sys_days(std::chrono::year(1988) / 9 / 11);
    return hours(summer ? 9 : 8);
  }
};

FileMoment Utc(std::u16string_view text) {
  return FileMoment(ParseMoment(text)->AppliedTo({}).time_since_epoch());
}

FileTimes Times(std::u16string_view created, std::u16string_view modified, std::u16string_view accessed) {
  FileTimes times;
  times[Kind::kCreated] = Utc(created);
  times[Kind::kModified] = Utc(modified);
  times[Kind::kAccessed] = Utc(accessed);
  return times;
}

const FileTimes kOld = Times(u"2020-01-01 00:00:00.1234567", u"2021-02-28 20:30:40", u"2022-03-03 03:03:03");

TEST(MomentText, IsReadAsPeopleWriteIt) {
  const std::pair<std::u16string_view, std::u16string_view> good[] = {
      {u"2020-01-02 03:04:05", u"2020-01-02 03:04:05"},
      {u" 2020/1/2T3:4 ", u"2020-01-02 03:04:00"},
      {u"2020年2月29日 3时4分5秒", u"2020-02-29 03:04:05"},
      {u"2020-02-29", u"2020-02-29 12:13:14"},
      {u"23:59:59.5", u"1999-09-09 23:59:59"},
      {u"0001-01-01 0:00", u"0001-01-01 00:00:00"}};
  const auto base = ParseMoment(u"1999-09-09 12:13:14")->AppliedTo({});
  for (const auto& [text, expected] : good) {
    const auto moment = ParseMoment(text);
    ASSERT_TRUE(moment) << std::string(text.begin(), text.end());
    EXPECT_EQ(MomentText(moment->AppliedTo(base)), expected);
  }
  for (const std::u16string_view text :
       {u"", u"2021-02-29", u"2020-13-01", u"24:00", u"3:60", u"2020-01-02x", u"12", u"2020-01-0203:04", u"created"}) {
    EXPECT_FALSE(ParseMoment(text)) << std::string(text.begin(), text.end());
  }
}

TEST(MomentText, ShiftsAreDistances) {
  const std::pair<std::u16string_view, std::chrono::seconds> good[] = {
      {u"+1d", hours(24)},
      {u"-2h30m", -std::chrono::minutes(150)},
      {u"1天2小时3分钟4秒", std::chrono::seconds(93784)},
      {u"+1w -1d", hours(144)},
      {u"90", std::chrono::seconds(90)},
      {u"-01:30:00", -std::chrono::minutes(90)},
      {u"+2 days", hours(48)}};
  for (const auto& [text, expected] : good) {
    EXPECT_EQ(ParseShift(text), std::optional<FileTicks>(expected)) << std::string(text.begin(), text.end());
  }
  for (const std::u16string_view text : {u"", u"+", u"d", u"1x", u"1d!", u"1 2:00x", u"9999999d", u"999999w"}) {
    EXPECT_FALSE(ParseShift(text)) << std::string(text.begin(), text.end());
  }
}

TEST(NameDate, IsFoundByLettersSignsAndGroups) {
  const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view> cases[] = {
      {u"YYYYMMDD_HHMMSS", u"IMG_20200102_030405.jpg", u"2020-01-02 03:04:05"},
      {u"YYYY-MM-DD", u"会议 2020-02-29.doc", u"2020-02-29 00:00:00"},
      {u"YYYYMMDD", u"99999999-20200102.txt", u"2020-01-02 00:00:00"},
      {u"yyMMdd*hhmm", u"710102 um 2359", u"1971-01-02 23:59:00"},
      {u"Summary %d.%m.%Y", u"Summary 02.01.2020", u"2020-01-02 00:00:00"},
      {u"(\\d{4})_(\\d+)_(\\d+)", u"a2020_1_2", u"2020-01-02 00:00:00"},
      {u"(YYYY)MMDD", u"(2020)0102", u"2020-01-02 00:00:00"}};
  for (const auto& [pattern, name, expected] : cases) {
    const auto moment = NameDate(pattern).In(name);
    ASSERT_TRUE(moment) << std::string(pattern.begin(), pattern.end());
    EXPECT_EQ(MomentText(moment->AppliedTo({})), expected);
  }
  EXPECT_FALSE(NameDate(u"YYYYMMDD").In(u"IMG_20201301.jpg"));
  EXPECT_FALSE(NameDate(u"(\\d+)-(\\d+)-(\\d+)").In(u"123456789012-1-1"));
  EXPECT_THROW(NameDate(u"YYYYMM"), ExplainedError);
  EXPECT_THROW(NameDate(u"(\\d+"), ExplainedError);
}

TEST(FileTimes, FollowTheRules) {
  const ChinaZone zone;
  const auto changed = [&zone](Kind kind, FileTimeSource source, FileTicks shift = {}) {
    FileTimesRules rules;
    rules[kind] = source;
    rules.shift = shift;
    return ChangedTimes("a", kOld, rules, zone);
  };
  const auto only = [](Kind kind, std::u16string_view text) {
    FileTimes times;
    times[kind] = Utc(text);
    return times;
  };
  // The date alone and the time alone are those of the clock on the wall: 2021-03-01 04:30:40 there.
  EXPECT_EQ(changed(Kind::kModified, *ParseMoment(u"2020-05-06")), only(Kind::kModified, u"2020-05-05 20:30:40"));
  EXPECT_EQ(changed(Kind::kModified, *ParseMoment(u"01:02:03")), only(Kind::kModified, u"2021-02-28 17:02:03"));
  EXPECT_EQ(changed(Kind::kModified, *ParseMoment(u"1988-07-01 12:00")), only(Kind::kModified, u"1988-07-01 03:00"));
  EXPECT_EQ(changed(Kind::kCreated, Kind::kAccessed, -hours(24)), only(Kind::kCreated, u"2022-03-02 03:03:03"));
  EXPECT_EQ(changed(Kind::kCreated, {}, hours(1)), only(Kind::kCreated, u"2020-01-01 01:00:00.1234567"));
  EXPECT_THROW(changed(Kind::kModified, *ParseMoment(u"1600-12-31 00:00")), ExplainedError);
  EXPECT_THROW(changed(Kind::kModified, *ParseMoment(u"9999-12-31 23:59"), hours(24)), ExplainedError);

  FileTimesRules byName;
  byName[Kind::kModified] = *ParseMoment(u"12:00");
  byName.name.emplace(u"YYYYMMDD");
  EXPECT_EQ(ChangedTimes("dir20200101/20200102.txt", kOld, byName, zone), only(Kind::kModified, u"2020-01-02 04:00"));
  EXPECT_THROW(ChangedTimes("dir20200101/a.txt", kOld, byName, zone), ExplainedError);
}

class FileTimesErrand : public ::testing::Test {
 protected:
  class View final : public FileTimesView {
   public:
    FileTimesForm Form() const override { return form; }
    void AddPlace(const std::u16string& place) override { form.places += place; }
    void ShowList(const std::vector<FileTimesRow>& shown) override { rows = shown; }
    void ShowRemark(const std::u16string& text) override { remark = text; }
    void EnableChange(bool enable) override { canChange = enable; }

    FileTimesForm form;
    std::vector<FileTimesRow> rows;
    std::u16string remark;
    bool canChange = false;
  };

  FileTimesErrand() {
    std::filesystem::create_directories(folder.path() / "a" / "下");
    for (const auto& path : {folder.Put("a/下/1%.txt", ""), folder.Put("a/2.txt", ""), folder.Put("a/3.log", ""),
                             folder.path() / "a" / "下", folder.path() / "a"}) {
      store.files[path] = kOld;
    }
    workbench.clock().now =
        std::chrono::floor<std::chrono::milliseconds>(ParseMoment(u"2026-03-09 08:05:09")->AppliedTo({}));
    view.form = dialog.FirstForm();
    view.form.places = u" \"" + TextOfPath(folder.path() / "a") + u"\" \r\n\r\n";
    view.form.moment = u"2000-01-01";
  }

  std::vector<std::u16string> Paths() const {
    std::vector<std::u16string> paths;
    for (const FileTimesRow& row : view.rows) {
      paths.push_back(TextOfPath(PathOfText(row.path).lexically_relative(folder.path())));
    }
    return paths;
  }

  TemporaryFolder folder;
  MemoryTimes store;
  ChinaZone zone;
  ScriptedWorkbench workbench;
  FileTimesDialog dialog{workbench, store, zone};
  View view;
};

TEST_F(FileTimesErrand, ListsChangesAndTakesBack) {
  view.form.pattern = u"*.txt";
  view.form.folders = true;
  dialog.List(view);
  EXPECT_EQ(Paths(), (std::vector<std::u16string>{u"a/2.txt", u"a/下/1%.txt", u"a/下", u"a"}));
  EXPECT_EQ(view.rows[0].before, u"2021-03-01 04:30:40");
  EXPECT_EQ(view.rows[0].after, u"2000-01-01 04:30:40");
  EXPECT_TRUE(view.canChange);
  workbench.prompts().Will(Answer::kNo);
  dialog.Change(view);
  EXPECT_EQ(store.files[folder.path() / "a"], kOld);
  EXPECT_TRUE(std::filesystem::is_empty(UndoFolder(workbench.folders())));

  const auto refused = folder.path() / "a" / "2.txt";
  store.refused.insert(refused);
  workbench.prompts().Will(Answer::kYes);
  dialog.Change(view);
  EXPECT_EQ(view.remark, u"已改变3个文件，失败1个，见表的开头");
  EXPECT_EQ(view.rows[0].path, TextOfPath(refused));
  EXPECT_EQ(view.rows[0].remark, u"没有权限，或文件正被其他程序使用");
  EXPECT_FALSE(view.canChange);
  EXPECT_EQ(store.files[folder.path() / "a"][Kind::kModified], Utc(u"1999-12-31 20:30:40"));

  const auto undo = UndoFolder(workbench.folders()) / u"文件日期 2026-03-09 080509.txt";
  std::filesystem::remove(folder.path() / "a" / "3.log");
  store.files.erase(refused);
  workbench.prompts().Will(undo);
  dialog.ListUndo(view);
  EXPECT_EQ(view.rows[0].remark, u"文件不存在");
  workbench.prompts().Will(Answer::kYes);
  dialog.Change(view);
  EXPECT_EQ(view.remark, u"已改变3个文件");
  for (const auto& [path, times] : store.files) {
    EXPECT_EQ(times, kOld) << path;
  }
}

TEST_F(FileTimesErrand, KeepsTheWayBackWhenItIsStopped) {
  dialog.List(view);
  workbench.prompts().Will(Answer::kYes);
  workbench.interruptAfter = workbench.reports + 2;
  dialog.Change(view);
  EXPECT_EQ(view.remark, u"中途停止，已改变1个文件");
  const std::string text = ReadWholeFile(*std::filesystem::directory_iterator(UndoFolder(workbench.folders())));
  NoProgress progress;
  EXPECT_EQ(PlanUndo(text, store, progress).entries.size(), 3U);
}

TEST_F(FileTimesErrand, RefusesWhatItCannotUnderstand) {
  const auto expectRefused = [this](auto change) {
    const FileTimesForm before = view.form;
    change(view.form);
    EXPECT_THROW(dialog.List(view), ExplainedError);
    EXPECT_FALSE(view.canChange);
    view.form = before;
  };
  expectRefused([](FileTimesForm& form) { form.places = u" \r\n"; });
  expectRefused([](FileTimesForm& form) { form.kinds = {}; });
  expectRefused([](FileTimesForm& form) { form.moment = u"昨天"; });
  expectRefused([](FileTimesForm& form) { form.shift = u"+1光年"; });
  expectRefused([](FileTimesForm& form) { form.source = FileTimesSource::kItself; });
  for (const std::string_view text :
       {"", "x\r\n", "Scrivanta file times: created, modified, accessed (UTC), path\n-\t-\n",
        "Scrivanta file times: created, modified, accessed (UTC), path\n-\tx\t-\t/a\n"}) {
    NoProgress progress;
    EXPECT_THROW(PlanUndo(text, store, progress), ExplainedError) << text;
  }
}

// On real files: read-only ones, links, times before 1970.
TEST(FileTimesOfTheSystem, AreWrittenExactly) {
  TemporaryFolder folder;
  const auto file = folder.Put("只读.txt", "x");
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  std::filesystem::create_symlink(file, folder.path() / "link");
  const FileTimesStore& store = SystemFileTimes();
  FileTimes times;
  times[Kind::kModified] = Utc(u"1965-04-03 02:01:00.1234567");
  store.Write(file, times);
  const FileTimes before = store.Read(file);
  EXPECT_EQ(before[Kind::kModified], times[Kind::kModified]);
  times[Kind::kModified] = Utc(u"2020-01-01");
  times[Kind::kAccessed] = Utc(u"2020-01-02");
  store.Write(folder.path() / "link", times);
  EXPECT_EQ(store.Read(file), before);
  EXPECT_EQ(store.Read(folder.path() / "link")[Kind::kModified], times[Kind::kModified]);
  EXPECT_THROW(store.Read(folder.path() / "none"), FileError);
  const FileMoment moment = Utc(u"1999-12-31 23:59:59.0000001");
  EXPECT_EQ(SystemTimeZone().FromLocal(SystemTimeZone().ToLocal(moment)), moment);
}

}  // namespace
}  // namespace scrivanta::testing
