#include "shell/window/FrmMainKeys.h"

#include <imm.h>

#include "shell/window/FrmMainTimers.h"
#include "text/DateTimeText.h"
#include "win/Keys.h"

namespace scrivanta {

namespace {

// Until the keys of the shortcut are up again.
constexpr UINT kTypingDelay = 250;  // milliseconds

}  // namespace

std::optional<LRESULT> FrmMainKeys::HandleMessage(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_ENDCOMPOSITION:
      SetComposing(message == WM_IME_STARTCOMPOSITION);
      return std::nullopt;
    case WM_KEYDOWN:
      if (HandleKey(wParam)) {
        return 0;
      }
      if (wParam == VK_BACK || wParam == VK_DELETE) {
        editor_.KnowFormatsBeforeInput();
      }
      return std::nullopt;
    case WM_CHAR:
    case WM_IME_COMPOSITION:
    case WM_CUT:
    case WM_CLEAR:
    case WM_PASTE:
    case EM_REPLACESEL:
      if (editor_.HasSelection()) {
        editor_.KnowFormatsBeforeInput();
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

void FrmMainKeys::SetComposing(bool composing) {
  isComposing_ = composing;
  host_.loop.EnableAccelerators(!composing);
}

void FrmMainKeys::FinishComposition() const {
  if (isComposing_) {
    const HIMC context = ImmGetContext(editor_.box());
    ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
    ImmReleaseContext(editor_.box(), context);
  }
}

// True when the key is no longer the control's.
bool FrmMainKeys::HandleKey(WPARAM key) {
  const bool shift = IsKeyDown(VK_SHIFT);
  if (isComposing_ || IsKeyDown(VK_MENU)) {
    return false;
  }
  if (IsKeyDown(VK_CONTROL)) {
    return HandleControlKey(key, shift);
  }
  SelectForErasing(key);
  return key == VK_RETURN && (shift ? BreakLine() : takeEnter_());
}

bool FrmMainKeys::HandleControlKey(WPARAM key, bool shift) {
  switch (key) {
    case 'C':
      if (shift) {
        editor_.CopyFormat();
      }
      return shift;
    case 'V':
      if (shift) {
        runGuarded_([this] { editor_.PasteFormat(); });
      }
      return shift;
    case VK_OEM_1:  // ";"
      SetTimer(GetParent(editor_.box()), shift ? kTypeTime : kTypeDate, kTypingDelay, nullptr);
      return true;
    case 'E':
    case 'J':
    case 'L':
    case 'R':
    case '1':
    case '2':
    case '5':
    case VK_OEM_PLUS:
      return true;  // the control would change paragraphs, and scripts, with these
    case 'A':
    case VK_OEM_COMMA:
    case VK_OEM_PERIOD:
      return shift;  // and capitals and the size of characters with these
    default:
      return false;
  }
}

// The control erases a unit, which of a pair of surrogates would leave one half: then the pair is selected for it.
void FrmMainKeys::SelectForErasing(WPARAM key) {
  if (key == VK_BACK) {
    editor_.SelectPairBeforeCaret();
  } else if (key == VK_DELETE) {
    editor_.SelectPairBehindCaret();
  }
}

// The control would begin a line on the screen that is none of the text.
bool FrmMainKeys::BreakLine() {
  runGuarded_([this] { editor_.ReplaceSelection(u"\r\n"); });
  return true;
}

void FrmMainKeys::TypeMoment(UINT_PTR timer) {
  const auto now = clock_.Now();
  runGuarded_([&] { editor_.ReplaceSelection(timer == kTypeDate ? DateText(now) : TimeText(now)); });
}

}  // namespace scrivanta
