// The document as a file: loading and saving in the format it came in, the path, the changed flag and the questions
// before a changed document is given up. The window only shows texts and hands them out.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shell/document/FileOnDisk.h"
#include "shell/document/Snapshot.h"
#include "shell/workbench/Document.h"
#include "shell/workbench/Workbench.h"
#include "text/DocumentFormat.h"
#include "text/Interface.h"

namespace scrivanta {

// The window as the document sees it.
class DocumentView : public Interface {
 public:
  // Show a new document: nothing to undo, the caret at its beginning. False when the bytes are no rich text: what was
  // shown stays.
  virtual void ShowDocument(std::u16string_view text) = 0;
  virtual bool ShowRichDocument(std::string_view rtf) = 0;
  // Another text in the place of the document's, as one step of undo; `onUndo` is told whenever the step is undone
  // (true) or redone (false).
  virtual void ReplaceText(std::u16string_view text, std::function<void(bool isUndone)> onUndo) = 0;
  // The same with a rich text. False when the bytes are none.
  virtual bool ReplaceByRtf(std::string_view rtf) = 0;
  // Without the characters that stand for what is no text, as pictures.
  virtual std::u16string PlainText() const = 0;
  // Throws ExplainedError when the rich text cannot be had as a whole.
  virtual std::string DocumentRtf() const = 0;
  // Whether the document may have formatting that its text alone would lose.
  virtual bool HasFormatting() const = 0;
  // Nothing when the bytes are no rich text.
  virtual std::optional<std::u16string> TextOfRtf(std::string_view rtf) = 0;

  virtual void SetReadOnly(bool readOnly) = 0;
  // The document has been changed; or it is safe, or given up: it counts as unchanged.
  virtual void NoteChanged(bool isChanged) = 0;

  // In the first status panel and in the caption; an empty path is an untitled document.
  virtual void ShowPath(const std::filesystem::path& path) = 0;
  // The file has been opened or saved. Not called for an encrypted document, which leaves no trace of its name.
  virtual void NoteUse(const std::filesystem::path& path) = 0;
  // Of the document: behind its path until the next command.
  virtual void ShowNotice(const std::u16string& notice) = 0;
  // In percent; nothing hides the progress bar.
  virtual void ShowProgressBar(std::optional<int> percent) = 0;
};

class DocumentFile final : public Document {
 public:
  using Time = std::chrono::steady_clock::time_point;

  DocumentFile(Workbench& workbench, DocumentView& view, std::function<Time()> now = &std::chrono::steady_clock::now)
      : workbench_(workbench), view_(view), now_(std::move(now)) {}

  // Loads a file in place of the document; rich text when its name ends in ".RTF". Line breaks in the path are dropped:
  // it may come from a line of text. It is shown as it was given, and absolute everywhere else. What is no text opens
  // after a question, and read-only. Throws FileError or ExplainedError, and the document stays as it was.
  void Load(const std::filesystem::path& path);
  // Saves under the path, which is the document's from then on, after the questions of ConfirmTarget. Text that the
  // encoding lacks is asked about once, formatting that plain text lacks too. Returns whether the document has been
  // saved. Throws FileError: the file stays as it was, and of the document only the path is another, the one that was
  // tried.
  bool SaveTo(const std::filesystem::path& path);

  void OpenAsked();
  // As one that is dropped.
  void OpenNamed(const std::filesystem::path& path);
  // Puts the caret to the beginning of a line, counted from 1; to the end when there are fewer, and nowhere for 0.
  void GoToLine(long long line);
  void OpenDropped(std::span<const std::filesystem::path> paths);
  void Save();
  // Whether the document has been saved.
  bool SaveAs();
  // Asks whether to save a changed document before the program ends; false when it is not to end.
  bool MayClose();

  void NoteChange() { SetChanged(true); }

  // To be called when the user comes back to the window: tells what another program has done to the file meanwhile, and
  // asks which text is to stay. The other one is not lost: what is shown can be undone, what is in the file is replaced
  // only after another question. Throws FileError or ExplainedError, and the document stays as it is.
  void LookAtFile();

  // How the document stands in its file, or will; rich text and encrypted documents have a form of their own.
  const DocumentFormat& format() const noexcept { return format_; }
  bool IsPlainText() const;
  bool IsReadOnly() const noexcept { return isReadOnly_; }
  // Reads the file again in an encoding that the user knows better. Asks before changes are given up. Throws FileError,
  // and the document stays as it is.
  bool CanReopen() const { return IsPlainText() && !file_.path().empty() && path_ == file_.path(); }
  void ReopenAs(DocumentEncoding encoding);
  // Saves a document of plain text in another encoding, as Save does; GB18030 is GBK that may exceed the code page.
  void SaveAs(DocumentEncoding encoding, bool exceedsCodePage = false);
  // Those that the document is to be saved with.
  void SetLineEnds(DocumentLineEnds lineEnds);

  // Whether it is saved by a saver of its own: its text must not lie on the disk in any other way.
  bool IsEncrypted() const noexcept { return saver_ != nullptr; }
  // The document as it is now, but for the time. Where its rich text cannot be had it is the text alone, which is said.
  Snapshot Capture() const;
  // Puts the document in the place of the one that is shown: changed, with nothing to undo. Throws ExplainedError when
  // its rich text is none.
  void Restore(const Snapshot& snapshot);
  // Nothing when its rich text is none.
  std::optional<std::u16string> TextOf(const Snapshot& snapshot);
  // Whether saving the snapshot's document would write what its file holds already.
  bool IsInItsFile(const Snapshot& snapshot);

  std::filesystem::path Path() const override { return path_; }
  bool IsChanged() const override { return isChanged_; }
  void MarkUnchanged() override { SetChanged(false); }
  bool OfferToSave() override;
  bool MayBeReplaced() override;
  std::optional<std::filesystem::path> ConfirmTarget(const std::filesystem::path& chosen) override;
  void ShowNew(std::u16string_view text, DocumentSaver saver) override;
  void SaveThrough(DocumentSaver saver) override;
  std::u16string TextOfFile(const std::filesystem::path& path) override;
  void OpenAt(const std::filesystem::path& path, long long line) override;

 private:
  // What a cancelled file dialog means when the document has no name to be saved under.
  enum class WithoutName { kGoOn, kCancel };

  // A file as the system names it, and as the user does.
  struct Target {
    std::filesystem::path path;
    std::filesystem::path shown;
  };

  void ShowText(FileOnDisk file, const DecodedDocument& document, const std::filesystem::path& shown);
  bool SaveTo(const std::filesystem::path& path, DocumentFormat format);
  DecodedDocument DecodeFile(std::string_view bytes) const;
  bool OfferToSave(const std::u16string& filter, WithoutName withoutName);
  bool SaveForQuestion(const std::u16string& filter, WithoutName withoutName);
  void SetChanged(bool isChanged);
  Target TargetOf(const std::filesystem::path& chosen) const;
  std::optional<Target> AskAboutTarget(const std::filesystem::path& chosen);
  bool ChangedExternally();
  bool MayDropFormats(const std::filesystem::path& path);
  bool MayLose(const std::filesystem::path& path);
  bool ChooseEncoding(std::u16string_view text, DocumentFormat& format);
  // What saving under the path would write; the text counts when the name is one of plain text.
  std::string BytesOf(const std::filesystem::path& path, std::u16string_view text, const DocumentFormat& format) const;
  // Of a document that was opened read-only and is as it was opened: those of its file, nothing when it is gone.
  std::optional<std::string> OriginalBytes(Progress& progress) const;
  void OfferToReload();
  void Reload(std::string_view bytes);
  // What is shown now is the document of the file.
  void TakeOver(FileOnDisk file, const std::filesystem::path& shown, const DocumentFormat& format);
  void WriteFile(std::string_view bytes, Progress& progress);

  Workbench& workbench_;
  DocumentView& view_;
  std::function<Time()> now_;
  std::filesystem::path path_;   // what saving writes to: the file's, unless saving has failed
  std::filesystem::path shown_;  // the same as the user has named it
  FileOnDisk file_;              // what the document is the content of
  DocumentFormat format_;
  std::optional<DocumentEncoding> chosenEncoding_;  // what the file was opened again in, whatever its bytes prove
  DocumentSaver saver_;
  bool isReadOnly_ = false;
  bool isChanged_ = false;
  bool mayDropFormats_ = false;  // the user has agreed to save the text of this document alone
  bool isGivenUp_ = false;       // the last offer to save it was turned down
};

}  // namespace scrivanta
