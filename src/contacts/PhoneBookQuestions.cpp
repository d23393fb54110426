#include "contacts/PhoneBookQuestions.h"

#include <algorithm>
#include <system_error>

#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostShown = 10;

std::u16string Text(std::string_view utf8) {
  return Decode(Encoding::kUtf8, utf8);
}

std::u16string LineOf(const NotUnderstoodInFile& found) {
  const std::u16string place = found.place.card == 0 ? u"名片之外" : u"第" + DecimalText(found.place.card) + u"张名片";
  return TextOfPath(found.file.filename()) + u"：" + place + u"，第" + DecimalText(found.place.line) + u"行";
}

template <typename T, typename Line>
std::u16string FirstOf(const std::vector<T>& all, Line line) {
  std::u16string text;
  for (std::size_t i = 0; i < std::min(all.size(), kMostShown); ++i) {
    text += u"\n" + line(all[i]);
  }
  return all.size() > kMostShown ? text + u"\n……" : text;
}

}  // namespace

std::optional<bool> AskWhetherToJoin(Prompts& prompts, const std::vector<DuplicateGroup>& duplicates) {
  if (duplicates.empty()) {
    return false;
  }
  const std::u16string groups = FirstOf(duplicates, [](const DuplicateGroup& group) {
    return Text(group.name) + u"  " + Text(group.number) + u"（" + DecimalText(group.members.size()) + u"条）";
  });
  const Answer answer = prompts.Ask({.text = u"有" + DecimalText(duplicates.size()) + u"组联系人姓名和号码都相同：" +
                                             groups + u"\n要把每组合并成一条吗？",
                                     .title = u"重复的联系人",
                                     .buttons = Buttons::kYesNoCancel,
                                     .icon = Icon::kQuestion,
                                     .defaultAnswer = Answer::kNo});
  return answer == Answer::kCancel ? std::nullopt : std::optional(answer == Answer::kYes);
}

std::filesystem::path AskForTarget(Prompts& prompts, std::u16string_view extension,
                                   const std::filesystem::path& proposal) {
  std::filesystem::path path = prompts.AskForFile({.filter = u"*" + std::u16string(extension),
                                                   .initialFolder = proposal.parent_path(),
                                                   .initialName = TextOfPath(proposal.filename())});
  if (path.empty()) {
    return {};
  }
  if (!path.has_extension()) {
    path += PathOfText(extension);
  }
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored) &&
      prompts.Ask({.text = u"文件“" + TextOfPath(path) + u"”已经存在，要替换它吗？",
                   .buttons = Buttons::kYesNo,
                   .icon = Icon::kQuestion,
                   .defaultAnswer = Answer::kNo}) != Answer::kYes) {
    return {};
  }
  return path;
}

void ReportPhoneBook(Workbench& workbench, const PhoneBookSurvey& written,
                     const std::vector<NotUnderstoodInFile>& notUnderstood) {
  const std::u16string counts =
      DecimalText(written.contacts) + u"个联系人，" + DecimalText(written.numbers) + u"个号码";
  workbench.ShowStatus(counts);
  if (!notUnderstood.empty()) {
    workbench.prompts().Ask({.text = counts + u"。\n有" + DecimalText(notUnderstood.size()) +
                                     u"行没有看懂，名片里的已原样保留在“其他”一栏：" + FirstOf(notUnderstood, LineOf),
                             .title = u"提示",
                             .icon = Icon::kInformation});
  }
}

}  // namespace scrivanta
