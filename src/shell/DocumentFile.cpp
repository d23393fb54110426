#include "shell/DocumentFile.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "text/AtomicFile.h"
#include "text/Bytes.h"
#include "text/Encoding.h"
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
  } else {
    view_.ShowDocument(Decode(Encoding::kGbk, bytes));
  }
  path_ = wanted;
  saver_ = nullptr;
  isChanged_ = false;
  view_.ShowPath(path_);
}

void DocumentFile::SaveTo(const std::filesystem::path& path) {
  path_ = PathOfText(WithTextExtension(TextOfPath(path)));
  view_.ShowPath(path_);
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const std::string bytes =
      IsRichText(path_) ? view_.DocumentRtf() : Encode(Encoding::kGbk, workbench_.editor().Text());
  const ShownProgressBar bar(view_);
  WriteFile(bytes, work->progress());
  saver_ = nullptr;
  isChanged_ = false;
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
  SaveTo(path);
  return true;
}

void DocumentFile::ShowNew(std::u16string_view text, DocumentSaver saver) {
  view_.ShowDocument(text);
  SaveThrough(std::move(saver));
}

void DocumentFile::SaveThrough(DocumentSaver saver) {
  path_.clear();
  saver_ = std::move(saver);
  isChanged_ = false;
  view_.ShowPath(path_);
}

std::u16string DocumentFile::TextOfFile(const std::filesystem::path& path) {
  const std::unique_ptr<BusyWork> work = workbench_.StartWork();
  const std::string bytes = ReadFile(path, work->progress());
  if (!IsRichText(path) || bytes.empty()) {
    return Decode(Encoding::kGbk, bytes);
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
