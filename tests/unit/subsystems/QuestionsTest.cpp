// Every box of the commands, and what they say that they have done, word for word: what people know them by.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "crypto/CryptoCommands.h"
#include "crypto/CryptoDialogs.h"
#include "lines/LineCommands.h"
#include "lines/LineDialogs.h"
#include "search/SearchCommands.h"
#include "search/SearchDialogs.h"
#include "shell/document/DocumentFile.h"
#include "support/ScriptedWorkbench.h"
#include "support/StringView.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

using std::literals::operator""s;
using Script = std::vector<ScriptedPrompts::ScriptedAnswer>;

class NoLineDialogs final : public LineDialogs {
  void ShowDelLines(DelLinesDialog&) override {}
  void ShowSort(Workbench&) override {}
};

class NoSearchDialogs final : public SearchDialogs {
  void ShowFind(Workbench&, FindState&, FindDialogFocus) override {}
  void ShowRegularTest(Workbench&) override {}
};

// Types a key and chooses Rijndael.
class TypedKey final : public CryptoDialogs, private SecretView {
  void ShowSecret(SecretDialog& dialog) override { dialog.Accept(*this); }
  std::u16string KeyText() const override { return u"1"; }
  void ClearKeyText() override {}
  std::u16string RepeatedText() const override { return u"1"; }
  bool RijndaelChecked() const override { return true; }
  bool SealedChecked() const override { return false; }
  void FocusKeyText() override {}
  void CloseView() override {}
};

// "title: text [buttons, default] icon, above all": what is usual is left out.
std::u16string Described(const Message& message) {
  static constexpr std::u16string_view kButtons[] = {u"", u"[确定 取消]", u"[是 否]", u"[是 否 取消]"};
  static constexpr std::u16string_view kAnswers[] = {u"", u" 取消!", u" 是!", u" 否!"};
  static constexpr std::u16string_view kIcons[] = {u"", u" 错误", u" 疑问", u" 警告", u" 信息"};
  std::u16string text = message.title == u"Scrivanta" ? std::u16string() : message.title + u": ";
  text.append(message.text).append(kButtons[static_cast<std::size_t>(message.buttons)]);
  text.append(kAnswers[static_cast<std::size_t>(message.defaultAnswer)]);
  text.append(kIcons[static_cast<std::size_t>(message.icon)]);
  return text + (message.systemModal ? u" 置顶" : u"");
}

std::u16string Described(const InputQuestion& question) {
  return (question.title == u"Scrivanta" ? std::u16string() : question.title + u": ") + question.prompt + u"<" +
         question.preset + u">";
}

struct Case {
  std::string_view command;
  std::u16string_view document;
  TextRange selection;
  Script answers;
  std::vector<std::u16string> messages;
  std::vector<std::u16string> inputs = {};
};

const std::u16string kByPattern =
    u"是否用正则方式过滤，选【是】，则每行用正则表达式提取，提取串相同即认为是重复行[是 否 取消] 否! 疑问";
const std::u16string kHowMany = u"[是]保留一条重复记录，[否]删除所有重复记录，[取消]退出[是 否 取消] 是! 疑问";

const Case kCases[] = {
    {"mnuFilterNeedLine",
     u"a",
     {},
     {u"a"s, Answer::kNo},
     {u"过虑方式: 关键字是否为正则表达式？[是 否] 否! 疑问"},
     {u"输入信息: 输入过滤行关键字：<>"}},
    {"mnuFilterRepeatLine",
     u"a",
     {},
     {Answer::kYes, u"a"s, Answer::kYes},
     {kByPattern, kHowMany},
     {u"输入过滤正则式，如提取每行标准号的正则式：[a-su-zA-SU-Z]+|[\\d]+：<[a-su-zA-SU-Z]+|[\\d]+>"}},
    {"mnuFilterRepeatLine",
     u"a",
     {},
     {Answer::kNo, Answer::kNo, Answer::kCancel},
     {kByPattern, kHowMany, u"[是]每行只取文件名部分进行比较，[否]整行文本方式比较，[取消]退出[是 否 取消] 否! 疑问"}},
    {"mnuFilterContinueRepeatLine", u"a", {}, {Answer::kCancel}, {kHowMany}},
    {"mnuAddTAB", u"\t\t\t\r\na", {}, {}, {u"提示: 各行TAB符均已经加足至3个"}},
    {"mnuGotoLine", u"a", {}, {u"x"s}, {u"出错了！ 错误 置顶"}, {u"指定要定位的行：<>"}},
    {"mnuStatistics",
     u"x\r\nab",
     {{3}, 2},
     {},
     {u"统计字符数: 当前行号：2\n所选字符数：2\n所选内容 软行数：硬行数 = 1：1 信息"}},
    {"mnufindall", u"a", {{0}, 1}, {u"b"s}, {u"未找到结果 信息 置顶"}, {u"高亮显示字符：: 高亮显示字符：<a>"}},
    {"mnuGoToThis",
     u"a.txt",
     {},
     {Answer::kCancel},
     {u"[是]用文本查看器打开,[否]用关联程序打开,[取消]退出[是 否 取消] 疑问"}},
    {"mnuFindInFile",
     u"no such file",
     {},
     {u"a"s},
     {u"未找到结果 信息 置顶"},
     {u"输入要在各行所列的文件、目录中寻找的字串：<>"}},
    {"mnuRegGet", u"a", {}, {u"b"s}, {u"未找到结果 信息 置顶"}, {u"输入要寻找的字串（正则表达式）<>"}},
    {"mnuRegReplace",
     u"a",
     {},
     {u"b"s, u"c"s},
     {u"未找到结果 信息 置顶"},
     {u"输入要寻找的字串（正则表达式）<>", u"替换为（取正则表达式中相应括号中的部分用：\\1\\2\\3...）：<>"}},
    {"mnuRegGet",
     u"a",
     {},
     {u"("s},
     {u"正则表达式有误：第1个字符：这个左括号“(”没有与之配对的“)”。 错误 置顶"},
     {u"输入要寻找的字串（正则表达式）<>"}},
    {"mnuDeEncryptSelectedText", u"xyz", {{0}, 3}, {}, {u"错误：非十六进制数据！"}},
};

struct Remarked {
  std::string_view command;
  std::u16string_view document;
  TextRange selection;
  Script answers;
  std::u16string_view remark;
};

const Remarked kRemarked[] = {
    {"mnuDelEmptyLine", u"a\r\n\r\nb\r\n\r\n\r\nc", {}, {}, u"已删除空行 3 行"},
    {"mnuTrimLine", u" a\r\nb\r\nc ", {}, {}, u"已去掉 2 行的首尾空格"},
    {"mnuTrimLine", u"[ 中文 ]", {{1}, 4}, {}, u"已去掉 1 行的首尾空格（只处理了所选的 4 个字符）"},
    {"mnuRandOrder", u"a\r\nb\r\nc", {}, {}, u"已打乱 3 行的次序"},
    {"mnuFilterNeedLine", u"ab\r\nb\r\nac\r\nc\r\nd", {}, {u"a"s, Answer::kNo}, u"含有 2 行在前，不含 3 行在后"},
    {"mnuFilterNeedLine", u"aba\r\nb", {}, {u"a"s, Answer::kYes}, u"匹配 2 处在前，其余 2 行在后"},
    {"mnuFilterRepeatLine",
     u"a\r\nb\r\na\r\na",
     {},
     {Answer::kNo, Answer::kYes, Answer::kNo},
     u"共 4 行：保留 2 行，重复 2 行列在后面"},
    {"mnuFilterRepeatLine",
     u"a\r\nb\r\na\r\na",
     {},
     {Answer::kNo, Answer::kNo, Answer::kNo},
     u"共 4 行：保留 1 行，重复 3 行列在后面"},
    {"mnuFilterContinueRepeatLine", u"a\r\na\r\nb\r\na", {}, {Answer::kYes}, u"共 4 行：保留 3 行，重复 1 行列在后面"},
    {"mnuRegGet", u"a1b2", {{1}, 3}, {u"\\d"s}, u"已提取 2 处（只处理了所选的 3 个字符）"},
    {"mnuRegReplace", u"a1\r\nb2", {}, {u"\\d"s, u"x"s}, u"已替换2处"},
};

TEST(Remarks, SayWhatACommandHasDone) {
  NoLineDialogs lineDialogs;
  NoSearchDialogs searchDialogs;
  CommandTable table;
  RegisterLineCommands(table, lineDialogs);
  RegisterSearchCommands(table, searchDialogs);
  for (const Remarked& c : kRemarked) {
    ScriptedWorkbench workbench;
    workbench.editor().Open(c.document, c.selection);
    for (const auto& answer : c.answers) {
      workbench.prompts().Will(answer);
    }
    EXPECT_TRUE(table.Run(c.command, workbench));
    EXPECT_EQ(workbench.status, c.remark) << c.command;
  }
}

TEST(Questions, AreAskedInTheirWords) {
  NoLineDialogs lineDialogs;
  NoSearchDialogs searchDialogs;
  TypedKey key;
  CommandTable table;
  RegisterLineCommands(table, lineDialogs);
  RegisterSearchCommands(table, searchDialogs);
  RegisterCryptoCommands(table, key);
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.command);
    ScriptedWorkbench workbench;
    workbench.editor().Open(c.document, c.selection);
    for (const auto& answer : c.answers) {
      workbench.prompts().Will(answer);
    }
    EXPECT_TRUE(table.Run(c.command, workbench));
    std::vector<std::u16string> messages;
    std::ranges::transform(workbench.prompts().messages, std::back_inserter(messages),
                           [](const Message& message) { return Described(message); });
    std::vector<std::u16string> inputs;
    std::ranges::transform(workbench.prompts().inputs, std::back_inserter(inputs),
                           [](const InputQuestion& question) { return Described(question); });
    EXPECT_EQ(messages, c.messages);
    EXPECT_EQ(inputs, c.inputs);
  }
}

TEST(Questions, OfDocumentsAreAskedInTheirWords) {
  const TemporaryFolder folder;
  ScriptedWorkbench workbench;
  StringView view{workbench.editor()};
  DocumentFile document{workbench, view};
  const auto other = folder.Put("other.txt", "old");
  const auto last = [&] { return Described(workbench.prompts().messages.back()); };

  document.OpenDropped(std::vector<std::filesystem::path>{"a", "b"});
  EXPECT_EQ(last(), u"每次只能打开一个文件！ 警告");

  workbench.editor().SetText(u"\U0001F4A9");
  document.NoteChange();
  workbench.prompts().Will(Answer::kCancel);
  EXPECT_FALSE(document.OfferToSave());
  EXPECT_EQ(last(), u"是否存盘?[是 否 取消] 疑问");

  workbench.prompts().Will(Answer::kCancel);
  document.SaveTo(folder.path() / "new.txt");
  EXPECT_EQ(
      last(),
      u"文档中有 GBK 编码没有的字符。\n“是”：存为 UTF-8 编码\n“否”：存为 GB18030 四字节编码\n“取消”：不存盘[是 否 "
      u"取消] 疑问");

  const auto binary = folder.Put("binary.txt", std::string("a\0b\0", 4));
  workbench.prompts().Will(Answer::kNo);
  document.Load(binary);
  EXPECT_EQ(last(), u"不是文本文件：\n" + binary.u16string() + u"\n是否以只读方式打开？[是 否] 否! 警告");
}

}  // namespace
}  // namespace scrivanta::testing
