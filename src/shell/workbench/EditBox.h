// What the commands of the editor ask of its edit box beyond the text: clipboard and character formats.
#pragma once

#include <optional>

#include "shell/workbench/FontLine.h"
#include "text/Interface.h"

namespace scrivanta {

enum class TextEffect { kBold, kItalic, kUnderline };

class EditBox : public Interface {
 public:
  // All on the selection; the first two through the clipboard.
  virtual void Cut() = 0;
  virtual void Copy() = 0;
  virtual void Paste() = 0;
  virtual void DeleteSelection() = 0;

  // Whether all of the selection has it.
  virtual bool HasEffect(TextEffect effect) const = 0;
  virtual void SetEffect(TextEffect effect, bool on) = 0;

  // The font of the document. Setting one changes what differs from it, of all characters, and nothing when nothing
  // does.
  virtual FontDescription Font() const = 0;
  virtual void SetFont(const FontDescription& font) = 0;
  // The platform's dialog; nothing when it was cancelled.
  virtual std::optional<FontDescription> AskForFont(const FontDescription& preset) = 0;
};

}  // namespace scrivanta
