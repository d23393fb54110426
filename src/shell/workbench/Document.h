// The document as a file: what is asked before another takes its place, and how one that is no plain file is saved.
// Its text is the Editor's.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "text/Interface.h"

namespace scrivanta {

class Workbench;

enum class SaveOutcome {
  kSaved,       // the document has been written; it counts as unchanged
  kNotSaved,    // the user has called it off; the document stays changed
  kSaveAsFile,  // the user wants a file of the ordinary kind: mnuSaveAs goes on
};

// Saves a document of another kind in place of mnuSave, and before the document is closed.
using DocumentSaver = std::function<SaveOutcome(Workbench&)>;

class Document : public Interface {
 public:
  // Empty while the document is untitled.
  virtual std::filesystem::path Path() const = 0;
  virtual bool IsChanged() const = 0;
  virtual void MarkUnchanged() = 0;

  // Asks "是否存盘?" while the document is changed and saves it on Yes, as before opening another one. False when the
  // answer was Cancel: the command ends.
  virtual bool OfferToSave() = 0;
  // To be asked right before another document takes the place: true when the document is unchanged or was just given
  // up. The name dialog of OfferToSave may have been cancelled: then it is asked about once more.
  virtual bool MayBeReplaced() = 0;

  // Where a document goes that is to be saved under a name of the user's: an absolute path, with ".Txt" for a new name
  // without an extension. Asks before a file is replaced that is not the document's own, or that another program has
  // changed; nothing when the user rather does not save. Throws ExplainedError when it is the file of a document opened
  // read-only.
  virtual std::optional<std::filesystem::path> ConfirmTarget(const std::filesystem::path& chosen) = 0;

  // Puts a text in the place of the document: untitled, unchanged, nothing to undo. Until the document is replaced, or
  // is saved under a name of its own, it is saved by the saver.
  virtual void ShowNew(std::u16string_view text, DocumentSaver saver) = 0;

  // Keeps text and undo of the document, which is untitled and unchanged from then on and saved by the saver, as after
  // ShowNew.
  virtual void SaveThrough(DocumentSaver saver) = 0;

  // Opens a file in the place of the document, or beside it in a new window while the document is changed, with the
  // caret at the beginning of a line, counted from 1. Throws FileError, ExplainedError.
  virtual void OpenAt(const std::filesystem::path& path, long long line) = 0;

  // The text of a file as a document would show it: rich text by its name, the encoding recognised. Touches nothing
  // that is seen. Throws FileError.
  virtual std::u16string TextOfFile(const std::filesystem::path& path) = 0;
};

}  // namespace scrivanta
