#include "shell/document/DocumentFile.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/ExplainedError.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20U;
constexpr char16_t kTextFilter[] = u"*.txt";
constexpr char16_t kAllDocumentsFilter[] = u"*.txt;*.rtf";

bool IsRichText(const std::filesystem::path& path) {
  return IsRichTextPath(TextOfPath(path));
}

std::filesystem::path WithoutLineBreaks(const std::filesystem::path& path) {
  std::u16string text = TextOfPath(path);
  for (std::size_t found = text.find(u"\r\n"); found != std::u16string::npos; found = text.find(u"\r\n", found)) {
    text.erase(found, 2);
  }
  return PathOfText(text);
}

ExplainedError NoRichText(const std::filesystem::path& path) {
  return {"not a rich text file", u"文件打开失败：\n" + TextOfPath(path) + u"\n文件内容不是 RTF 格式"};
}

// Hides the progress bar whatever happens.
class ShownProgressBar {
 public:
  explicit ShownProgressBar(DocumentView& view) : view_(view) { view_.ShowProgressBar(0); }
  ShownProgressBar(const ShownProgressBar&) = delete;
  ShownProgressBar& operator=(const ShownProgressBar&) = delete;
  ~ShownProgressBar() { view_.ShowProgressBar(std::nullopt); }

 private:
  DocumentView& view_;
};

}  // namespace

void DocumentFile::Load(const std::filesystem::path& path) {
  const std::filesystem::path wanted = WithoutLineBreaks(path);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  // Looked at first: what another program writes from then on is noticed.
  FileOnDisk file(wanted);
  const std::string bytes = ReadFile(wanted, work->progress());
  if (IsRichText(wanted) && !bytes.empty()) {
    if (!view_.ShowRichDocument(bytes)) {
      throw NoRichText(wanted);
    }
    TakeOver(std::move(file), wanted, {});
    return;
  }
  const DecodedDocument document = DecodeDocument(bytes);
  if (document.format.isBinary && !ConfirmBinary(wanted)) {
    return;
  }
  view_.ShowDocument(document.text);
  TakeOver(std::move(file), wanted, document.format);
  if (document.format.lineEnds == DocumentLineEnds::kMixed) {
    workbench_.ShowStatus(u"行尾不一致，存盘时将统一为 CR LF");
  }
}

bool DocumentFile::ConfirmBinary(const std::filesystem::path& path) {
  return workbench_.prompts().Ask({.text = u"不是文本文件：\n" + TextOfPath(path) + u"\n是否以只读方式打开？",
                                   .buttons = Buttons::kYesNo,
                                   .icon = Icon::kWarning,
                                   .defaultAnswer = Answer::kNo}) == Answer::kYes;
}

// The document that is shown now is this one.
void DocumentFile::TakeOver(FileOnDisk file, const std::filesystem::path& path, const DocumentFormat& format) {
  path_ = path;
  file_ = std::move(file);
  format_ = format;
  saver_ = nullptr;
  isReadOnly_ = format.isBinary;
  view_.SetReadOnly(isReadOnly_);
  view_.ShowPath(path_);
  if (!path_.empty()) {
    view_.NoteUse(path_);
  }
  SetChanged(false);
}

void DocumentFile::SetChanged(bool isChanged) {
  isChanged_ = isChanged;
  view_.NoteChanged(isChanged);
}

Snapshot DocumentFile::Capture() const {
  const bool isRich = IsRichText(path_) || view_.HasFormatting();
  return {.path = path_,
          .format = format_,
          .stamp = file_.stamp(),
          .selection = workbench_.editor().Selection(),
          .taken = {},
          .text = isRich ? std::u16string() : workbench_.editor().Text(),
          .rtf = isRich ? std::optional(view_.DocumentRtf()) : std::nullopt};
}

void DocumentFile::Restore(const Snapshot& snapshot) {
  if (!snapshot.rtf) {
    view_.ShowDocument(snapshot.text);
  } else if (!view_.ShowRichDocument(*snapshot.rtf)) {
    throw NoRichText(snapshot.path);
  }
  TakeOver(FileOnDisk(snapshot.path, snapshot.stamp), snapshot.path, snapshot.format);
  workbench_.editor().SetSelection(snapshot.selection);
  SetChanged(true);
}

std::optional<std::u16string> DocumentFile::TextOf(const Snapshot& snapshot) {
  return snapshot.rtf ? view_.TextOfRtf(*snapshot.rtf) : snapshot.text;
}

bool DocumentFile::IsInItsFile(const Snapshot& snapshot) {
  if (snapshot.path.empty()) {
    return false;
  }
  try {
    const std::optional<std::u16string> text = TextOf(snapshot);
    const std::string file = ReadWholeFile(snapshot.path);
    return IsRichText(snapshot.path) ? snapshot.rtf == file : text && EncodeDocument(*text, snapshot.format) == file;
  } catch (const FileError&) {
    return false;
  }
}

bool DocumentFile::SaveTo(const std::filesystem::path& path) {
  const std::filesystem::path wanted = PathOfText(WithTextExtension(TextOfPath(path)));
  if (isReadOnly_ && wanted == path_) {
    throw ExplainedError("the document is read-only",
                         u"只读打开的文件不能存盘，请另存为其他文件名：\n" + TextOfPath(path));
  }
  if (wanted == path_ && file_.ChangedExternally()) {
    const OverAnothers choice = AskAboutAnothers();
    if (choice != OverAnothers::kSave) {
      return choice == OverAnothers::kSaveAs && SaveAs();
    }
  }
  const std::u16string text = IsRichText(wanted) ? std::u16string() : workbench_.editor().Text();
  if (!ChooseEncoding(text)) {
    return false;
  }
  if (wanted != path_) {
    file_ = {};
  }
  path_ = wanted;
  view_.ShowPath(path_);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const ShownProgressBar bar(view_);
  WriteFile(BytesOf(text), work->progress());
  file_ = FileOnDisk(path_);
  saver_ = nullptr;
  if (std::exchange(isReadOnly_, false)) {
    view_.SetReadOnly(false);
  }
  view_.NoteUse(path_);
  SetChanged(false);
  return true;
}

std::string DocumentFile::BytesOf(std::u16string_view text) const {
  return IsRichText(path_) ? view_.DocumentRtf() : EncodeDocument(text, format_);
}

void DocumentFile::LookAtFile() {
  switch (file_.Look()) {
    case FileOnDisk::News::kNone:
      return;
    case FileOnDisk::News::kGone:
      SetChanged(true);
      workbench_.prompts().Ask(
          {.text = u"文件已被删除、移走或改名：\n" + TextOfPath(path_) + u"\n文本还在这里，存盘就重新写出这个文件。",
           .icon = Icon::kWarning});
      return;
    case FileOnDisk::News::kChanged:
      OfferToReload();
  }
}

void DocumentFile::OfferToReload() {
  std::string bytes;
  try {
    bytes = ReadFile(path_, workbench_.StartWork()->progress());
  } catch (const FileError&) {
    file_.TellAgain();  // the other program is not done with it
    return;
  }
  if (bytes == BytesOf(workbench_.editor().Text())) {
    file_.Accept();
    SetChanged(false);
    return;
  }
  const std::u16string both = isChanged_ ? u"这里的文本也改动过，还没有存盘。\n" : u"";
  const Answer answer =
      workbench_.prompts().Ask({.text = u"文件已被其他程序改动：\n" + TextOfPath(path_) + u"\n" + both +
                                        u"\n“是”：载入文件现在的内容，这里的文本可以撤消回来\n"
                                        u"“否”：保留这里的文本，文件先不动，存盘时再问",
                                .buttons = Buttons::kYesNo,
                                .icon = Icon::kQuestion,
                                .defaultAnswer = isChanged_ ? Answer::kNo : Answer::kYes});
  if (answer == Answer::kYes) {
    Reload(bytes);
  } else {
    SetChanged(true);
  }
}

// One change that can be undone.
void DocumentFile::Reload(std::string_view bytes) {
  Editor& editor = workbench_.editor();
  const TextRange selection = editor.Selection();
  const ScrollPosition scroll = editor.Scroll();
  if (IsRichText(path_) && !bytes.empty()) {
    if (!editor.SetRtf(bytes)) {
      throw NoRichText(path_);
    }
  } else {
    const DecodedDocument document = DecodeDocument(bytes);
    if (document.format.isBinary && !isReadOnly_) {
      throw ExplainedError("the file is no text any more",
                           u"文件现在的内容不是文本，没有载入，这里的文本不变：\n" + TextOfPath(path_));
    }
    editor.SetText(document.text);
    format_ = document.format;
  }
  editor.SetSelection(selection);
  editor.SetScroll(scroll);
  file_.Accept();
  SetChanged(false);
}

DocumentFile::OverAnothers DocumentFile::AskAboutAnothers() {
  switch (workbench_.prompts().Ask({.text = u"文件在打开以后被其他程序改动过：\n" + TextOfPath(path_) +
                                            u"\n\n“是”：用这里的文本代替文件现在的内容\n"
                                            u"“否”：另存为其他文件\n"
                                            u"“取消”：不存盘",
                                    .buttons = Buttons::kYesNoCancel,
                                    .icon = Icon::kWarning,
                                    .defaultAnswer = Answer::kNo})) {
    case Answer::kYes:
      return OverAnothers::kSave;
    case Answer::kNo:
      return OverAnothers::kSaveAs;
    default:
      return OverAnothers::kCancel;
  }
}

// False when the user rather does not save.
bool DocumentFile::ChooseEncoding(std::u16string_view text) {
  if (!NeedsEncodingQuestion(text, format_)) {
    return true;
  }
  switch (workbench_.prompts().Ask({.text = u"文档中有 GBK 编码没有的字符。\n"
                                            u"“是”：存为 UTF-8 编码\n"
                                            u"“否”：存为 GB18030 四字节编码\n"
                                            u"“取消”：不存盘",
                                    .buttons = Buttons::kYesNoCancel,
                                    .icon = Icon::kQuestion})) {
    case Answer::kYes:
      format_.encoding = DocumentEncoding::kUtf8;
      return true;
    case Answer::kNo:
      format_.exceedsCodePage = true;
      return true;
    default:
      return false;
  }
}

void DocumentFile::OpenAsked() {
  if (!OfferToSave()) {
    return;
  }
  const std::filesystem::path path = workbench_.prompts().AskForFile({.filter = kTextFilter});
  if (!path.empty()) {
    Load(path);
  }
}

void DocumentFile::OpenDropped(std::span<const std::filesystem::path> paths) {
  if (paths.size() > 1) {
    workbench_.prompts().Ask({.text = u"每次只能打开一个文件！", .icon = Icon::kWarning});
  } else if (!paths.empty() && OfferToSave(kTextFilter, WithoutName::kCancel)) {
    Load(paths.front());
  }
}

void DocumentFile::Save() {
  const SaveOutcome outcome = saver_ ? saver_(workbench_) : SaveOutcome::kSaveAsFile;
  if (outcome != SaveOutcome::kSaveAsFile) {
    return;
  }
  if (path_.empty()) {
    SaveAs();
  } else {
    SaveTo(path_);
  }
}

bool DocumentFile::SaveAs() {
  const std::filesystem::path path = workbench_.prompts().AskForFile({.filter = kTextFilter});
  return !path.empty() && SaveTo(path);
}

bool DocumentFile::MayClose() {
  return OfferToSave(kAllDocumentsFilter, WithoutName::kCancel);
}

bool DocumentFile::OfferToSave() {
  return OfferToSave(kTextFilter, WithoutName::kGoOn);
}

bool DocumentFile::OfferToSave(const std::u16string& filter, WithoutName withoutName) {
  if (!isChanged_) {
    return true;
  }
  switch (workbench_.prompts().Ask({.text = u"是否存盘?", .buttons = Buttons::kYesNoCancel, .icon = Icon::kQuestion})) {
    case Answer::kYes:
      return SaveForQuestion(filter, withoutName);
    case Answer::kNo:
      return true;
    default:
      return false;
  }
}

bool DocumentFile::SaveForQuestion(const std::u16string& filter, WithoutName withoutName) {
  const SaveOutcome outcome = saver_ ? saver_(workbench_) : SaveOutcome::kSaveAsFile;
  if (outcome != SaveOutcome::kSaveAsFile) {
    return outcome == SaveOutcome::kSaved;
  }
  const std::filesystem::path path = path_.empty() ? workbench_.prompts().AskForFile({.filter = filter}) : path_;
  if (path.empty()) {
    return withoutName == WithoutName::kGoOn;
  }
  return SaveTo(path);
}

void DocumentFile::ShowNew(std::u16string_view text, DocumentSaver saver) {
  view_.ShowDocument(text);
  SaveThrough(std::move(saver));
}

void DocumentFile::SaveThrough(DocumentSaver saver) {
  TakeOver({}, {}, {});
  saver_ = std::move(saver);
}

std::u16string DocumentFile::TextOfFile(const std::filesystem::path& path) {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const std::string bytes = ReadFile(path, work->progress());
  if (!IsRichText(path) || bytes.empty()) {
    return DecodeDocument(bytes).text;
  }
  std::optional<std::u16string> text = view_.TextOfRtf(bytes);
  if (!text) {
    throw NoRichText(path);
  }
  return *std::move(text);
}

std::string DocumentFile::ReadFile(const std::filesystem::path& path, Progress& progress) {
  FileSource source(path);
  const std::uint64_t total = source.Size().value_or(0);
  std::string bytes;
  for (std::size_t count = kBlock; count > 0;) {
    const std::size_t before = bytes.size();
    bytes.resize(before + kBlock);
    count = source.Read(std::span(bytes).subspan(before));
    bytes.resize(before + count);
    progress.Report(bytes.size(), total);
  }
  return bytes;
}

void DocumentFile::WriteFile(std::string_view bytes, Progress& progress) {
  AtomicFile file(path_);
  for (std::size_t done = 0; done < bytes.size();) {
    const std::string_view block = bytes.substr(done, kBlock);
    file.Write(block);
    done += block.size();
    view_.ShowProgressBar(static_cast<int>(100 * done / bytes.size()));
    progress.Report(done, bytes.size());
  }
  file.Commit();
}

}  // namespace scrivanta
