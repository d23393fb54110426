#include "win/BoxMenu.h"

#include <richedit.h>

#include <array>
#include <string_view>
#include <vector>

#include "win/PopupMenu.h"

namespace scrivanta {

namespace {

struct Action {
  std::u16string_view caption;
  bool changes;
  bool needsSelection;
  UINT message;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
};

// Only text is pasted.
constexpr std::array kActions = {Action{u"&U 撤消\tCtrl+Z", true, false, EM_UNDO},
                                 Action{u"&T 剪切\tCtrl+X", true, true, WM_CUT},
                                 Action{u"&C 拷贝\tCtrl+C", false, true, WM_COPY},
                                 Action{u"&P 粘贴\tCtrl+V", true, false, EM_PASTESPECIAL, CF_UNICODETEXT},
                                 Action{u"&D 删除", true, true, WM_CLEAR},
                                 Action{u"&A 全选\tCtrl+A", false, false, EM_SETSEL, 0, -1}};

void OpenBoxMenu(HWND box, POINT at) {
  CHARRANGE selection{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const bool isReadOnly = (SendMessageW(box, EM_GETOPTIONS, 0, 0) & ECO_READONLY) != 0;
  std::vector<const Action*> actions;
  std::vector<PopupEntry> entries;
  for (const Action& action : kActions) {
    if (!isReadOnly || !action.changes) {
      actions.push_back(&action);
      entries.push_back({std::u16string(action.caption), !action.needsSelection || selection.cpMin != selection.cpMax});
    }
  }
  if (const std::optional<std::size_t> chosen = ChooseFromPopup(box, at, entries)) {
    const Action& action = *actions[*chosen];
    SendMessageW(box, action.message, action.wParam, action.lParam);
  }
}

}  // namespace

std::optional<LRESULT> AnswerWithBoxMenu(HWND box, UINT message, LPARAM lParam) {
  if (message == WM_RBUTTONUP) {  // not every control makes of it what the next is
    SendMessageW(box, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(box), static_cast<LPARAM>(GetMessagePos()));
    return 0;
  }
  if (message == WM_CONTEXTMENU) {
    OpenBoxMenu(box, PlaceOfContextMenu(box, lParam));
    return 0;
  }
  return std::nullopt;
}

}  // namespace scrivanta
