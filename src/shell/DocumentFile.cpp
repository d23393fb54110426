#include "shell/DocumentFile.h"

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
  const std::string bytes = ReadFile(wanted, work->progress());
  if (IsRichText(wanted) && !bytes.empty()) {
    if (!view_.ShowRichDocument(bytes)) {
      throw NoRichText(wanted);
    }
    TakeOver(wanted, {}, nullptr);
    return;
  }
  const DecodedDocument document = DecodeDocument(bytes);
  if (document.format.isBinary && !ConfirmBinary(wanted)) {
    return;
  }
  view_.ShowDocument(document.text);
  TakeOver(wanted, document.format, nullptr);
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
void DocumentFile::TakeOver(const std::filesystem::path& path, const DocumentFormat& format, DocumentSaver saver) {
  path_ = path;
  format_ = format;
  saver_ = std::move(saver);
  isReadOnly_ = format.isBinary;
  isChanged_ = false;
  view_.SetReadOnly(isReadOnly_);
  view_.ShowPath(path_);
  if (!path_.empty()) {
    view_.NoteUse(path_);
  }
}

bool DocumentFile::SaveTo(const std::filesystem::path& path) {
  const std::filesystem::path wanted = PathOfText(WithTextExtension(TextOfPath(path)));
  if (isReadOnly_ && wanted == path_) {
    throw ExplainedError("the document is read-only",
                         u"只读打开的文件不能存盘，请另存为其他文件名：\n" + TextOfPath(path));
  }
  const std::u16string text = workbench_.editor().Text();
  if (!IsRichText(wanted) && !ChooseEncoding(text)) {
    return false;
  }
  path_ = wanted;
  view_.ShowPath(path_);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const ShownProgressBar bar(view_);
  WriteFile(IsRichText(path_) ? view_.DocumentRtf() : EncodeDocument(text, format_), work->progress());
  saver_ = nullptr;
  isChanged_ = false;
  if (std::exchange(isReadOnly_, false)) {
    view_.SetReadOnly(false);
  }
  view_.NoteUse(path_);
  return true;
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

void DocumentFile::SaveAs() {
  const std::filesystem::path path = workbench_.prompts().AskForFile({.filter = kTextFilter});
  if (!path.empty()) {
    SaveTo(path);
  }
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
  TakeOver({}, {}, std::move(saver));
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
