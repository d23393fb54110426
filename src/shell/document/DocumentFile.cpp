#include "shell/document/DocumentFile.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "rtf/RtfLosses.h"
#include "shell/document/DocumentQuestions.h"
#include "shell/document/SaveProgressBar.h"
#include "shell/workbench/NewInstance.h"
#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/ExplainedError.h"
#include "text/LineText.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/ReadAll.h"
#include "text/SameFile.h"

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

// For the file as it was.
std::filesystem::path FreeNameBeside(const std::filesystem::path& path) {
  for (int number = 1;; ++number) {
    std::filesystem::path name = path.stem();
    name += number == 1 ? u"-原文件" : u"-原文件" + DecimalText(number);
    name += path.extension();
    std::filesystem::path beside = path.parent_path() / name;
    if (!InspectReplaceTarget(beside).exists) {
      return beside;
    }
  }
}

ExplainedError NoRichText(const std::filesystem::path& path) {
  return {"not a rich text file", u"文件打开失败：\n" + TextOfPath(path) + u"\n文件内容不是 RTF 格式"};
}

std::string ReadFile(const std::filesystem::path& path, Progress& progress) {
  FileSource source(path);
  return ReadAll(source, progress);
}

}  // namespace

void DocumentFile::Load(const std::filesystem::path& path) {
  const std::filesystem::path wanted = WithoutLineBreaks(path);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  // Looked at first: what another program writes from then on is noticed.
  FileOnDisk file(AbsolutePath(wanted));
  const std::string bytes = ReadFile(file.path(), work->progress());
  file.NoteContent(bytes);
  if (IsRichText(wanted) && !bytes.empty()) {
    if (!view_.ShowRichDocument(bytes)) {
      throw NoRichText(wanted);
    }
    TakeOver(std::move(file), wanted, {});
    if (view_.PlainText() != workbench_.editor().Text()) {
      view_.ShowNotice(u"小方框处是图片、链接、注释等，存盘时原样写回");
    }
    return;
  }
  const DecodedDocument document = DecodeDocument(bytes);
  if (document.format.isBinary && !AskToOpenReadOnly(workbench_.prompts(), wanted)) {
    return;
  }
  ShowText(std::move(file), document, wanted);
}

void DocumentFile::ShowText(FileOnDisk file, const DecodedDocument& document, const std::filesystem::path& shown) {
  view_.ShowDocument(document.text);
  TakeOver(std::move(file), shown, document.format);
  if (document.format.lineEnds == DocumentLineEnds::kMixed) {
    view_.ShowNotice(u"行尾不一致，存盘时将统一为 CR LF");
  }
}

void DocumentFile::TakeOver(FileOnDisk file, const std::filesystem::path& shown, const DocumentFormat& format) {
  path_ = file.path();
  shown_ = shown;
  file_ = std::move(file);
  format_ = format;
  chosenEncoding_.reset();
  saver_ = nullptr;
  mayDropFormats_ = false;
  isReadOnly_ = format.isBinary;
  view_.SetReadOnly(isReadOnly_);
  view_.ShowPath(shown_);
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
  Snapshot snapshot{.path = path_,
                    .format = format_,
                    .stamp = path_ == file_.path() ? file_.stamp() : std::nullopt,
                    .selection = workbench_.editor().Selection(),
                    .taken = {},
                    .text = {},
                    .rtf = std::nullopt};
  if (IsRichText(path_) || view_.HasFormatting()) {
    try {
      snapshot.rtf = view_.DocumentRtf();
      return snapshot;
    } catch (const ExplainedError&) {
      // Its file may hold what the text does not: once restored it asks before it replaces that.
      snapshot.stamp.reset();
      workbench_.ShowStatus(u"恢复用的副本里只有文字：带格式的文本没有全部取出");
    }
  }
  snapshot.text = workbench_.editor().Text();
  return snapshot;
}

void DocumentFile::Restore(const Snapshot& snapshot) {
  if (!snapshot.rtf) {
    view_.ShowDocument(snapshot.text);
  } else if (!view_.ShowRichDocument(*snapshot.rtf)) {
    throw NoRichText(snapshot.path);
  }
  // Without a stamp the file is one that saving to had failed: whatever stands there is not the document's.
  TakeOver(snapshot.stamp ? FileOnDisk(snapshot.path, snapshot.stamp) : FileOnDisk(), snapshot.path, snapshot.format);
  path_ = snapshot.path;
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

// A new name gets an extension when it has none; the document's own file keeps the name it has, however it is spelt.
DocumentFile::Target DocumentFile::TargetOf(const std::filesystem::path& chosen) const {
  const std::filesystem::path path = AbsolutePath(chosen);
  if (path == path_) {
    return {path_, shown_};
  }
  if (!file_.path().empty() && IsSameFile(path, file_.path())) {
    return {path, chosen};
  }
  const std::filesystem::path named = PathOfText(WithTextExtension(TextOfPath(chosen)));
  return {AbsolutePath(named), named};
}

std::optional<DocumentFile::Target> DocumentFile::AskAboutTarget(const std::filesystem::path& chosen) {
  Prompts& prompts = workbench_.prompts();
  Target target = TargetOf(chosen);
  if (file_.path().empty() || !IsSameFile(target.path, file_.path())) {
    const ReplaceTarget there = InspectReplaceTarget(target.path);
    // What cannot be replaced is told when it is tried.
    const bool mayGo = !there.exists || there.refusal || AskToReplace(prompts, target.path);
    return mayGo ? std::optional(std::move(target)) : std::nullopt;
  }
  if (isReadOnly_) {
    throw ExplainedError("the document is read-only",
                         u"只读打开的文件不能存盘，请另存为其他文件名：\n" + TextOfPath(target.path));
  }
  const Answer answer = ChangedExternally() ? AskToReplaceChanged(prompts, target.path) : Answer::kYes;
  if (answer != Answer::kNo) {
    return answer == Answer::kYes ? std::optional(std::move(target)) : std::nullopt;
  }
  const std::filesystem::path other = prompts.AskForFile({.filter = kTextFilter});
  return other.empty() ? std::nullopt : AskAboutTarget(other);
}

std::optional<std::filesystem::path> DocumentFile::ConfirmTarget(const std::filesystem::path& chosen) {
  std::optional<Target> target = AskAboutTarget(chosen);
  return target ? std::optional(std::move(target->path)) : std::nullopt;
}

// A file that was only touched has not been changed.
bool DocumentFile::ChangedExternally() {
  if (!file_.ChangedExternally()) {
    return false;
  }
  try {
    return !file_.Holds(ReadFile(file_.path(), workbench_.StartWork()->progress()));
  } catch (const FileError&) {
    return true;
  }
}

bool DocumentFile::SaveTo(const std::filesystem::path& path) {
  return SaveTo(path, format_);
}

bool DocumentFile::SaveTo(const std::filesystem::path& path, DocumentFormat format) {
  const std::optional<Target> target = AskAboutTarget(path);
  if (!target) {
    return false;
  }
  const std::u16string text = IsRichText(target->path) ? std::u16string() : view_.PlainText();
  if (!MayDropFormats(target->path) || !ChooseEncoding(text, format) || !MayLose(target->path)) {
    return false;
  }
  path_ = target->path;
  shown_ = target->shown;
  view_.ShowPath(shown_);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  std::optional<std::string> original = OriginalBytes(work->progress());
  const bool unifiesLineEnds =
      !original && !IsRichText(path_) && !format.isBinary && format.lineEnds == DocumentLineEnds::kMixed;
  const std::string bytes = original ? *std::move(original) : BytesOf(path_, text, format);
  WriteFile(bytes, work->progress());
  if (unifiesLineEnds) {
    format.lineEnds = DocumentLineEnds::kCrLf;
    workbench_.ShowStatus(u"行尾不一致，存盘时已统一为 CR LF");
  }
  file_ = FileOnDisk(path_);
  file_.NoteContent(bytes);
  format_ = format;
  saver_ = nullptr;
  if (std::exchange(isReadOnly_, false)) {
    view_.SetReadOnly(false);
  }
  view_.NoteUse(path_);
  SetChanged(false);
  return true;
}

std::string DocumentFile::BytesOf(const std::filesystem::path& path, std::u16string_view text,
                                  const DocumentFormat& format) const {
  return IsRichText(path) ? view_.DocumentRtf() : EncodeDocument(text, format);
}

std::optional<std::string> DocumentFile::OriginalBytes(Progress& progress) const {
  if (!isReadOnly_ || isChanged_ || IsRichText(path_)) {
    return std::nullopt;
  }
  try {
    std::string bytes = ReadFile(file_.path(), progress);
    return file_.Holds(bytes) ? std::optional(std::move(bytes)) : std::nullopt;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

void DocumentFile::LookAtFile() {
  if (path_ != file_.path()) {
    return;  // saving elsewhere has failed, and is what comes next
  }
  switch (file_.Look()) {
    case FileOnDisk::News::kNone:
      return;
    case FileOnDisk::News::kGone:
      SetChanged(true);
      TellFileIsGone(workbench_.prompts(), path_);
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
  if (file_.Holds(bytes)) {
    file_.Accept(bytes);
  } else if (bytes == BytesOf(path_, view_.PlainText(), format_)) {
    file_.Accept(bytes);
    SetChanged(false);
  } else if (AskToReload(workbench_.prompts(), path_, isChanged_)) {
    Reload(bytes);
  } else {
    SetChanged(true);
  }
}

// One change that can be undone, and the format of the file with it.
void DocumentFile::Reload(std::string_view bytes) {
  Editor& editor = workbench_.editor();
  const TextRange selection = editor.Selection();
  const ScrollPosition scroll = editor.Scroll();
  if (IsRichText(path_) && !bytes.empty()) {
    if (!view_.ReplaceByRtf(bytes)) {
      throw NoRichText(path_);
    }
  } else {
    const DecodedDocument document = DecodeFile(bytes);
    if (document.format.isBinary && !isReadOnly_) {
      throw ExplainedError("the file is no text any more",
                           u"文件现在的内容不是文本，没有载入，这里的文本不变：\n" + TextOfPath(path_));
    }
    view_.ReplaceText(document.text, [this, before = format_, after = document.format](bool isUndone) {
      format_ = isUndone ? before : after;
    });
    format_ = document.format;
  }
  editor.SetSelection(selection);
  editor.SetScroll(scroll);
  file_.Accept(bytes);
  SetChanged(false);
}

// False when the user rather does not save, here and below.
bool DocumentFile::MayDropFormats(const std::filesystem::path& path) {
  if (!IsRichText(path) && view_.HasFormatting() && !mayDropFormats_) {
    mayDropFormats_ = AskToDropFormats(workbench_.prompts(), path);
    return mayDropFormats_;
  }
  return true;
}

// Asked before the document's own file is overwritten the first time: what has been written by then has nothing to
// lose.
bool DocumentFile::MayLose(const std::filesystem::path& path) {
  if (!IsRichText(path) || file_.path().empty() || !IsSameFile(path, file_.path())) {
    return true;
  }
  std::string bytes;
  try {
    bytes = ReadFile(path, workbench_.StartWork()->progress());
  } catch (const FileError&) {
    return true;  // there is nothing to be lost, or saving will say what is wrong
  }
  const std::set<RtfLoss> losses = RtfLosses(bytes);
  if (losses.empty()) {
    return true;
  }
  const std::filesystem::path copy = FreeNameBeside(path);
  const Answer answer = AskAboutLosses(workbench_.prompts(), copy, losses);
  if (answer == Answer::kYes) {
    ReplaceFileContent(copy, bytes);
  }
  return answer == Answer::kYes || answer == Answer::kNo;
}

bool DocumentFile::ChooseEncoding(std::u16string_view text, DocumentFormat& format) {
  if (!NeedsEncodingQuestion(text, format)) {
    return true;
  }
  const bool wouldBeMisread = WouldBeMisread(text, format);
  switch (wouldBeMisread ? AskAboutMisreading(workbench_.prompts()) : AskForEncoding(workbench_.prompts())) {
    case Answer::kYes:
      format.encoding = DocumentEncoding::kUtf8;
      return true;
    case Answer::kNo:
      format.exceedsCodePage |= !wouldBeMisread;
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
  if (!path.empty() && MayBeReplaced()) {
    Load(path);
  }
}

void DocumentFile::OpenDropped(std::span<const std::filesystem::path> paths) {
  if (paths.size() > 1) {
    workbench_.prompts().Ask({.text = u"每次只能打开一个文件！", .icon = Icon::kWarning});
  } else if (!paths.empty()) {
    OpenNamed(paths.front());
  }
}

void DocumentFile::OpenNamed(const std::filesystem::path& path) {
  if (OfferToSave(kTextFilter, WithoutName::kCancel)) {
    Load(path);
  }
}

void DocumentFile::GoToLine(long long line) {
  if (line > 0) {
    Editor& editor = workbench_.editor();
    const std::u16string text = editor.Text();
    editor.SetSelection({{BeginOfLine(text, line).value_or(text.size())}, 0});
  }
}

void DocumentFile::OpenAt(const std::filesystem::path& path, long long line) {
  if (isChanged_) {
    StartInstance(workbench_, path, line);
  } else {
    Load(path);
    GoToLine(line);
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

bool DocumentFile::MayBeReplaced() {
  return isGivenUp_ || OfferToSave(kTextFilter, WithoutName::kCancel);
}

bool DocumentFile::OfferToSave(const std::u16string& filter, WithoutName withoutName) {
  isGivenUp_ = false;
  if (!isChanged_) {
    return true;
  }
  switch (AskToSave(workbench_.prompts())) {
    case Answer::kYes:
      return SaveForQuestion(filter, withoutName);
    case Answer::kNo:
      isGivenUp_ = true;
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

bool DocumentFile::IsPlainText() const {
  return saver_ == nullptr && !IsRichText(path_);
}

DecodedDocument DocumentFile::DecodeFile(std::string_view bytes) const {
  return chosenEncoding_ ? DecodeDocumentAs(*chosenEncoding_, bytes) : DecodeDocument(bytes);
}

void DocumentFile::ReopenAs(DocumentEncoding encoding) {
  if (!CanReopen() || (isChanged_ && !AskToReopen(workbench_.prompts(), path_))) {
    return;
  }
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  FileOnDisk file(path_);
  const std::string bytes = ReadFile(path_, work->progress());
  file.NoteContent(bytes);
  const DecodedDocument document = DecodeDocumentAs(encoding, bytes);
  if (document.format.isBinary && !AskToOpenReadOnly(workbench_.prompts(), path_)) {
    return;
  }
  ShowText(std::move(file), document, std::filesystem::path(shown_));
  chosenEncoding_ = encoding;
}

void DocumentFile::SaveAs(DocumentEncoding encoding, bool exceedsCodePage) {
  const std::filesystem::path path = path_.empty() ? workbench_.prompts().AskForFile({.filter = kTextFilter}) : path_;
  if (path.empty()) {
    return;
  }
  DocumentFormat format = format_;
  format.encoding = encoding;
  format.exceedsCodePage = exceedsCodePage;
  if (SaveTo(path, format)) {
    chosenEncoding_.reset();
  }
}

void DocumentFile::SetLineEnds(DocumentLineEnds lineEnds) {
  if (lineEnds != format_.lineEnds) {
    format_.lineEnds = lineEnds;
    SetChanged(true);
  }
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

void DocumentFile::WriteFile(std::string_view bytes, Progress& progress) {
  AtomicFile file(path_);
  SaveProgressBar bar(view_, now_);
  for (std::size_t done = 0; done < bytes.size();) {
    const std::string_view block = bytes.substr(done, kBlock);
    file.Write(block);
    done += block.size();
    bar.Show(static_cast<int>(100 * done / bytes.size()));
    progress.Report(done, bytes.size());
  }
  file.Commit();
  RemoveLeftBehind(path_.parent_path());
}

}  // namespace scrivanta
