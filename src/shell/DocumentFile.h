// The document as a file: loading and saving in the format it came in, the path, the changed flag and the questions
// before a changed document is given up. The window only shows texts and hands them out.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shell/Document.h"
#include "shell/Workbench.h"
#include "text/DocumentFormat.h"

namespace scrivanta {

// The window as the document sees it.
class DocumentView {
 public:
  DocumentView() = default;
  DocumentView(const DocumentView&) = delete;
  DocumentView& operator=(const DocumentView&) = delete;
  virtual ~DocumentView() = default;

  // Show a new document: nothing to undo, the caret at its beginning. False when the bytes are no rich text: what was
  // shown stays.
  virtual void ShowDocument(std::u16string_view text) = 0;
  virtual bool ShowRichDocument(std::string_view rtf) = 0;
  virtual std::string DocumentRtf() const = 0;
  // Nothing when the bytes are no rich text.
  virtual std::optional<std::u16string> TextOfRtf(std::string_view rtf) = 0;

  virtual void SetReadOnly(bool readOnly) = 0;

  // In the first status panel and in the caption; an empty path is an untitled document.
  virtual void ShowPath(const std::filesystem::path& path) = 0;
  // The file has been opened or saved. Not called for an enciphered document, which leaves no trace of its name.
  virtual void NoteUse(const std::filesystem::path& path) = 0;
  // In percent; nothing hides the progress bar.
  virtual void ShowProgressBar(std::optional<int> percent) = 0;
};

class DocumentFile final : public Document {
 public:
  DocumentFile(Workbench& workbench, DocumentView& view) : workbench_(workbench), view_(view) {}

  // Loads a file in place of the document; rich text when its name ends in ".RTF". Line breaks in the path are dropped:
  // it may come from a line of text. What is no text opens after a question, and read-only. Throws FileError or
  // ExplainedError, and the document stays as it was.
  void Load(const std::filesystem::path& path);
  // Saves under the path, which gets the extension ".Txt" when it has none and is the document's from then on. Text
  // that the encoding lacks is asked about once. Returns whether the document has been saved. Throws FileError, and the
  // file stays as it was.
  bool SaveTo(const std::filesystem::path& path);

  void OpenAsked();
  void OpenDropped(std::span<const std::filesystem::path> paths);
  void Save();
  void SaveAs();
  // Asks whether to save a changed document before the program ends; false when it is not to end.
  bool MayClose();

  void NoteChange() noexcept { isChanged_ = true; }

  std::filesystem::path Path() const override { return path_; }
  bool IsChanged() const override { return isChanged_; }
  void MarkUnchanged() override { isChanged_ = false; }
  bool OfferToSave() override;
  void ShowNew(std::u16string_view text, DocumentSaver saver) override;
  void SaveThrough(DocumentSaver saver) override;
  std::u16string TextOfFile(const std::filesystem::path& path) override;

 private:
  // What a cancelled file dialog means when the document has no name to be saved under.
  enum class WithoutName { kGoOn, kCancel };

  bool OfferToSave(const std::u16string& filter, WithoutName withoutName);
  bool SaveForQuestion(const std::u16string& filter, WithoutName withoutName);
  bool ConfirmBinary(const std::filesystem::path& path);
  bool ChooseEncoding(std::u16string_view text);
  void TakeOver(const std::filesystem::path& path, const DocumentFormat& format, DocumentSaver saver);
  static std::string ReadFile(const std::filesystem::path& path, Progress& progress);
  void WriteFile(std::string_view bytes, Progress& progress);

  Workbench& workbench_;
  DocumentView& view_;
  std::filesystem::path path_;
  DocumentFormat format_;
  DocumentSaver saver_;
  bool isReadOnly_ = false;
  bool isChanged_ = false;
};

}  // namespace scrivanta
