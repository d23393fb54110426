// The rich edit control of the document, counted in ControlPos: what can be read of it, and replacing parts or the
// whole of it fast.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "rtf/FormattedText.h"
#include "rtf/KeptParts.h"
#include "shell/history/DocumentHistory.h"
#include "shell/workbench/Workbench.h"
#include "text/TextPieces.h"
#include "win/FreshRichEdit.h"
#include "win/RichEdit.h"

namespace scrivanta {

// None of its changes sends a notification or is drawn before it is done. The whole is loaded into a new control, which
// then takes the place of the old one: until then nothing has changed, so whatever is thrown leaves the document as it
// was. Loading is work that the user can watch and interrupt.
class FrmMainControl final : public UndoTarget {
 public:
  struct Host {
    std::function<std::unique_ptr<BusyWork>()> startWork;
    // The control is another window now.
    std::function<void()> onNewWindow;
  };

  FrmMainControl(RichEdit& box, Host host) : box_(box), host_(std::move(host)) {}

  std::size_t Length() const override { return box_.Length(); }
  ControlRange Selection() const override;
  std::u16string Read(ControlRange range) const override;

  void Replace(std::span<const ControlEdit> edits) override;
  std::optional<FormattedText> Formatted(ControlRange range) const override;
  RichText Capture() const override;
  void Rebuild(const RichText& richText, std::u16string_view documentText) override;
  void Select(ControlRange range) override;

  // A new document of plain text. Of a large one the first page can be read while the rest is loaded.
  void LoadDocument(std::u16string_view text);
  // The whole anew, from its beginning: without formatting; from the bytes of a rich text. False when they are none,
  // and nothing is changed.
  void LoadText(std::u16string_view text);
  bool LoadRtf(std::string_view bytes);
  void LoadRtf(const RtfByLines& rtf);
  // The same for another document: what was kept of the one before is forgotten, or stays for its undo.
  bool LoadRtfDocument(std::string_view bytes);
  bool ReloadRtfDocument(std::string_view bytes);
  // In the place of the selection, as if it were typed. False when the bytes are no rich text, or break off.
  bool InsertRtf(std::string_view bytes);

  // The rich text as other programs read it. What the control has in the place of pictures and the like is no text.
  std::string DocumentRtf() const { return parts_.PutBackDocument(box_.Rtf()); }
  std::string SelectedRtf() const { return parts_.PutBack(box_.SelectedRtf()); }
  const KeptParts& parts() const noexcept { return parts_; }
  void SetHead(KeptParts::Head head) { parts_.SetHead(std::move(head)); }

  // As Formatted, whether or not the text has formats of its own.
  std::optional<FormattedText> ReadFormatted(ControlRange range) const;

  // A part that becomes another text, of which these are the pieces, and its formats when they can be taken apart.
  struct NewText {
    ControlRange part;
    const TextPieces& pieces;
    std::u16string_view text;
    const std::optional<FormattedText>& before;
  };
  // What is kept keeps its formats. The first for the whole: the line at the top stays there and the caret in its line,
  // wherever the lines have gone. The other leaves the caret behind the new text. False when the formats are gone.
  bool Rearrange(const NewText& after);
  bool RearrangePart(const NewText& after);
  // What that comes to, as edits that undo brings back with their formats.
  static std::vector<ControlEdit> EditsOf(const NewText& after, std::u16string_view before);

  // What another text would be like in the control. The text of a rich text, nothing when the bytes are none; and the
  // lines that a text is wrapped to.
  std::optional<std::u16string> TextOfRtf(std::string_view bytes);
  std::size_t CountLines(std::u16string_view controlText);

  static bool IsRichText(std::string_view bytes);
  // Whether the text may have formatting of its own, which a change of the whole as plain text would lose.
  bool hasFormatting() const noexcept { return hasFormatting_; }
  void NoteFormatting() noexcept { hasFormatting_ = true; }

  static CHARRANGE ToPlatform(ControlRange range);

 private:
  using ShowPlace = std::function<void(RichEdit&)>;

  void ReplaceWhole(std::span<const ControlEdit> edits);
  bool ReplaceWholeFormatted(std::span<const ControlEdit> edits);
  void ReplaceEach(std::span<const ControlEdit> edits);
  std::u16string WholeText(const NewText& after) const;
  bool PutTogether(const NewText& after, const ShowPlace& showPlace);
  bool ReplaceInPlace(const NewText& after, const ShowPlace& showPlace);
  bool LoadRearranged(const NewText& after, const ShowPlace& showPlace);
  bool ShowRtf(std::string_view controlRtf);
  bool ShowFormatted(const FormattedText& text, const ShowPlace& showPlace);
  void Show(FreshRichEdit& fresh, bool hasFormatting);

  RichEdit& box_;
  Host host_;
  bool hasFormatting_ = false;
  KeptParts parts_;
};

}  // namespace scrivanta
