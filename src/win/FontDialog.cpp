#include "win/FontDialog.h"

#include <commdlg.h>

#include <algorithm>

#include "text/win/WideText.h"

namespace scrivanta {

std::optional<FontChoice> ShowFontDialog(HWND owner, const FontChoice& preset) {
  constexpr int kTenthsPerInch = 720;  // of a point
  LOGFONTW font{};
  font.lfHeight = -MulDiv(preset.tenthsOfPoint, static_cast<int>(GetDpiForWindow(owner)), kTenthsPerInch);
  font.lfWeight = preset.bold ? FW_BOLD : FW_NORMAL;
  font.lfItalic = preset.italic ? TRUE : FALSE;
  font.lfUnderline = preset.underline ? TRUE : FALSE;
  font.lfStrikeOut = preset.strikeThrough ? TRUE : FALSE;
  font.lfCharSet = GB2312_CHARSET;
  std::copy_n(preset.name.begin(), std::min<std::size_t>(preset.name.size(), LF_FACESIZE - 1), font.lfFaceName);
  CHOOSEFONTW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpLogFont = &font;
  dialog.rgbColors = preset.colour;
  dialog.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT;
  if (ChooseFontW(&dialog) == FALSE) {
    return std::nullopt;
  }
  return FontChoice{.name = FromWide(font.lfFaceName),
                    .tenthsOfPoint = dialog.iPointSize,
                    .colour = dialog.rgbColors,
                    .bold = font.lfWeight > FW_MEDIUM,
                    .italic = font.lfItalic != 0,
                    .underline = font.lfUnderline != 0,
                    .strikeThrough = font.lfStrikeOut != 0};
}

}  // namespace scrivanta
