#include "shell/document/DocumentQuestions.h"

#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::u16string_view NameOf(RtfLoss loss) {
  switch (loss) {
    case RtfLoss::kStyles:
      return u"样式的名字";
    case RtfLoss::kLists:
      return u"自动编号";
    case RtfLoss::kBookmarks:
      return u"书签";
    case RtfLoss::kRevisions:
      return u"修订标记";
    case RtfLoss::kSections:
      return u"第一节以后的分节";
    case RtfLoss::kTables:
      return u"嵌套的表格和合并的单元格";
    case RtfLoss::kTextEffects:
      return u"文字效果（小型大写、阴影、间距等）";
    case RtfLoss::kParts:
      break;
  }
  return u"一部分图片和注释（太多）";
}

}  // namespace

Answer AskToSave(Prompts& prompts) {
  return prompts.Ask({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion});
}

bool AskToReplace(Prompts& prompts, const std::filesystem::path& path) {
  return prompts.Ask({.text = u"文件已存在：\n" + TextOfPath(path) + u"\n是否替换？",
                      .buttons = Buttons::kYesNo,
                      .icon = Icon::kWarning,
                      .defaultAnswer = Answer::kNo}) == Answer::kYes;
}

bool AskToOpenReadOnly(Prompts& prompts, const std::filesystem::path& path) {
  return prompts.Ask({.text = u"不是文本文件：\n" + TextOfPath(path) + u"\n是否以只读方式打开？",
                      .buttons = Buttons::kYesNo,
                      .icon = Icon::kWarning,
                      .defaultAnswer = Answer::kNo}) == Answer::kYes;
}

Answer AskForEncoding(Prompts& prompts) {
  return prompts.Ask({.text = u"文档中有 GBK 编码没有的字符。\n"
                              u"“是”：存为 UTF-8 编码\n"
                              u"“否”：存为 GB18030 四字节编码\n"
                              u"“取消”：不存盘",
                      .buttons = Buttons::kYesNoCancel,
                      .icon = Icon::kQuestion});
}

Answer AskAboutMisreading(Prompts& prompts) {
  return prompts.Ask({.text = u"这些文字存为 GBK 编码以后，再打开时会被认作另一种编码，变成别的字。\n"
                              u"“是”：存为 UTF-8 编码\n"
                              u"“否”：仍然存为 GBK 编码\n"
                              u"“取消”：不存盘",
                      .buttons = Buttons::kYesNoCancel,
                      .icon = Icon::kQuestion});
}

bool AskToDropFormats(Prompts& prompts, const std::filesystem::path& path) {
  return prompts.Ask({.text = u"文档带有格式，存为纯文本时格式会丢失：\n" + TextOfPath(path) +
                              u"\n是否只存文字？（要保留格式，请另存为 .rtf 文件）",
                      .buttons = Buttons::kYesNo,
                      .icon = Icon::kWarning,
                      .defaultAnswer = Answer::kNo}) == Answer::kYes;
}

bool AskToReopen(Prompts& prompts, const std::filesystem::path& path) {
  return prompts.Ask({.text = u"文档改动过，还没有存盘：\n" + TextOfPath(path) +
                              u"\n按另一种编码重新打开，这些改动就没有了。是否重新打开？",
                      .buttons = Buttons::kYesNo,
                      .icon = Icon::kWarning,
                      .defaultAnswer = Answer::kNo}) == Answer::kYes;
}

bool AskToReload(Prompts& prompts, const std::filesystem::path& path, bool isChangedHereToo) {
  const std::u16string both = isChangedHereToo ? u"这里的文本也改动过，还没有存盘。\n" : u"";
  return prompts.Ask({.text = u"文件已被其他程序改动：\n" + TextOfPath(path) + u"\n" + both +
                              u"\n“是”：载入文件现在的内容，这里的文本可以撤消回来\n"
                              u"“否”：保留这里的文本，文件先不动，存盘时再问",
                      .buttons = Buttons::kYesNo,
                      .icon = Icon::kQuestion,
                      .defaultAnswer = isChangedHereToo ? Answer::kNo : Answer::kYes}) == Answer::kYes;
}

Answer AskToReplaceChanged(Prompts& prompts, const std::filesystem::path& path) {
  return prompts.Ask({.text = u"文件在打开以后被其他程序改动过：\n" + TextOfPath(path) +
                              u"\n\n“是”：用这里的文本代替文件现在的内容\n"
                              u"“否”：另存为其他文件\n"
                              u"“取消”：不存盘",
                      .buttons = Buttons::kYesNoCancel,
                      .icon = Icon::kWarning,
                      .defaultAnswer = Answer::kNo});
}

Answer AskAboutLosses(Prompts& prompts, const std::filesystem::path& copy, const std::set<RtfLoss>& losses) {
  std::u16string names;
  for (const RtfLoss loss : losses) {
    names.append(names.empty() ? u"" : u"、").append(NameOf(loss));
  }
  return prompts.Ask({.text = u"文件里有编辑框不能保留的内容，存盘以后就没有了：\n" + names +
                              u"\n\n“是”：原来的文件先留一份，再存盘：\n" + TextOfPath(copy) +
                              u"\n“否”：直接存盘\n“取消”：不存盘",
                      .buttons = Buttons::kYesNoCancel,
                      .icon = Icon::kWarning});
}

void TellFileIsGone(Prompts& prompts, const std::filesystem::path& path) {
  prompts.Ask({.text = u"文件已被删除、移走或改名：\n" + TextOfPath(path) + u"\n文本还在这里，存盘就重新写出这个文件。",
               .icon = Icon::kWarning});
}

}  // namespace scrivanta
