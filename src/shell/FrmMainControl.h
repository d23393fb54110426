// The rich edit control of the document, counted in ControlPos: what can be read of it, and replacing parts of it fast.
#pragma once

#include "shell/DocumentHistory.h"
#include "win/RichEdit.h"

namespace scrivanta {

// None of its changes sends a notification or is drawn before it is done.
class FrmMainControl final : public UndoTarget {
 public:
  explicit FrmMainControl(RichEdit& box) : box_(box) {}

  std::size_t Length() const override { return box_.Length(); }
  ControlRange Selection() const override;
  std::u16string Read(ControlRange range) const override;

  void Replace(const ControlEdit& edit) override;
  RichText Capture() const override;
  void Rebuild(const RichText& richText, std::u16string_view documentText) override;
  void Select(ControlRange range) override;

  // The whole anew, from its beginning: without formatting; from the bytes of a rich text. False when they are none,
  // and the control may then hold anything.
  void LoadText(std::u16string_view text);
  bool LoadRtf(std::string_view bytes);

  // Whether the text may have formatting of its own, which a change of the whole as plain text would lose.
  bool hasFormatting() const noexcept { return hasFormatting_; }
  void NoteFormatting() noexcept { hasFormatting_ = true; }

  static CHARRANGE ToPlatform(ControlRange range);

 private:
  void ReplaceWhole(const ControlEdit& edit);

  RichEdit& box_;
  bool hasFormatting_ = false;
};

}  // namespace scrivanta
