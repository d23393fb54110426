#include "note/FrmNote.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "note/FrmNoteControls.h"
#include "regexp/RegExpErrors.h"
#include "text/Twips.h"
#include "text/win/WideText.h"
#include "win/Keys.h"
#include "win/Monitors.h"

namespace scrivanta {

namespace {

constexpr UINT_PTR kKeepTimer = 1;
constexpr UINT kKeepInterval = 250;  // milliseconds

NoteDialog::Time Now() {
  return std::chrono::steady_clock::now();
}

int ToPixels(int twips) {
  return TwipsToPixels(twips, static_cast<int>(GetDpiForSystem()));
}

int ToTwips(int pixels) {
  return PixelsToTwips(pixels, static_cast<int>(GetDpiForSystem()));
}

RECT BoundsIn(HWND parent, HWND control) {
  RECT bounds{};
  GetWindowRect(control, &bounds);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
  return bounds;
}

}  // namespace

FrmNote::FrmNote(WindowHost& host, Workbench& workbench, NoteDesk& desk, std::unique_ptr<NoteDialog> note)
    : Dialog(host, IDD_FRM_NOTE), workbench_(workbench), desk_(desk), note_(std::move(note)) {}

std::optional<std::string> FrmNote::Name() const {
  return note_ ? std::optional(note_->name()) : std::nullopt;
}

void FrmNote::OnInit() {
  text_.Create(host(), handle(), RichNote, [this](WPARAM key) { return OnKey(key); });
  HookKeys(TxtNoteFind, [this](WPARAM key) { return key == VK_F3 && OnKey(key); });
  note_->Open(*this);
  FillList();
  LayOut();
  SetTimer(handle(), kKeepTimer, kKeepInterval, nullptr);
  FocusOn(RichNote);
  isReady_ = true;
}

std::optional<LRESULT> FrmNote::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_TIMER:
      if (wParam == kKeepTimer && note_) {
        if (note_->Tick(*this, Now())) {
          FillList();  // the title may be another one
        }
      }
      return 0;
    case WM_CLOSE:  // its caption closes the window, whatever Esc does just now
      CloseByUser();
      return 0;
    case WM_GETMINMAXINFO: {
      RECT least{0, 0, 130, 90};  // dialog units: room for the search line and some text
      MapDialogRect(handle(), &least);
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.right, least.bottom};
      return 0;
    }
    case WM_SIZE:
      if (isReady_) {
        LayOut();
        NoteChange();
      }
      return 0;
    case WM_MOVE:
      if (isReady_) {
        NoteChange();
      }
      return 0;
    case WM_ENDSESSION:
      if (wParam != FALSE) {
        CloseWithProgram();
      }
      return 0;
    default:
      return std::nullopt;
  }
}

bool FrmNote::OnCommand(int controlId, int notification) {
  switch (controlId) {
    case IDCANCEL:
      if (isSearching_) {
        ShowSearch(false);
      } else {
        CloseByUser();
      }
      return true;
    case IDOK:
      if (isSearching_) {
        GoToPlace(true);
      }
      return true;
    case RichNote:
      if (notification == EN_CHANGE && isReady_) {
        NoteChange();
        if (isSearching_) {
          FindPlaces();
        }
      }
      return true;
    case TxtNoteFind:
    case ChkNotePattern:
      if (isSearching_ && (notification == EN_CHANGE || controlId == ChkNotePattern)) {
        FindPlaces();
      }
      return true;
    case CmbNotes:
      if (notification == CBN_DROPDOWN) {
        FillList();
      } else if (notification == CBN_SELENDOK) {
        ChooseFromList();
      }
      return true;
    default:
      return OnMenu(controlId);
  }
}

bool FrmNote::OnMenu(int commandId) {
  switch (commandId) {
    case mnuNoteNew:
      desk_.ShowNew();
      return true;
    case mnuNoteToDocument:
      note_->PutIntoDocument(*this);
      return true;
    case mnuNoteTakeSelection:
      TakeSelection();
      return true;
    case mnuNoteFind:
      ShowSearch(true);
      return true;
    case mnuNoteDelete:
      if (note_->Delete()) {
        Close();
      }
      return true;
    case mnuNoteClose:
      CloseByUser();
      return true;
    case mnuNoteFont:
      note_->AskForFont(*this, Now());
      return true;
    case mnuNotePaper:
      AskForPaper();
      return true;
    case mnuNoteOpacity:
      note_->AskForOpacity(*this, Now());
      return true;
    default:
      return false;
  }
}

bool FrmNote::OnKey(WPARAM key) {
  if (key == VK_F3) {
    GoToPlace(!IsKeyDown(VK_SHIFT));
    return true;
  }
  if (key == VK_ESCAPE) {
    OnCommand(IDCANCEL, 0);
    return true;
  }
  struct Shortcut {
    WPARAM key;
    int command;
  };
  constexpr std::array kWithCtrl = {Shortcut{'F', mnuNoteFind}, Shortcut{VK_RETURN, mnuNoteToDocument},
                                    Shortcut{'N', mnuNoteNew}};
  const auto* const found = std::ranges::find(kWithCtrl, key, &Shortcut::key);
  return found != kWithCtrl.end() && IsKeyDown(VK_CONTROL) && OnMenu(found->command);
}

// When the note cannot be kept its window stays, with all of the text.
void FrmNote::CloseByUser() {
  note_->Close(*this, true);
  Close();
}

void FrmNote::CloseWithProgram() noexcept {
  try {
    if (note_) {
      note_->Close(*this, false);
    }
  } catch (...) {
    return;
  }
}

void FrmNote::OnClose() {
  isReady_ = false;
  isSearching_ = false;
  text_.Forget();
  note_.reset();
}

void FrmNote::NoteChange() {
  if (note_) {
    note_->NoteChange(Now());
  }
}

void FrmNote::TakeText(const std::u16string& text) {
  note_->TakeText(*this, text, Now());
}

void FrmNote::TakeSelection() {
  const std::u16string text = workbench_.editor().SelectedText();
  if (text.empty()) {
    workbench_.prompts().Ask({.text = u"文档里没有选中的文字！", .icon = Icon::kInformation});
  } else {
    TakeText(text);
  }
}

void FrmNote::AskForPaper() {
  std::array<COLORREF, 16> custom{};
  custom.fill(RGB(255, 255, 255));
  CHOOSECOLORW question{};
  question.lStructSize = sizeof(question);
  question.hwndOwner = handle();
  question.rgbResult = note_->look().paper;
  question.lpCustColors = custom.data();
  question.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (ChooseColorW(&question) != FALSE) {
    note_->SetPaper(*this, question.rgbResult, Now());
  }
}

void FrmNote::LayOut() {
  RECT inner{};
  GetClientRect(handle(), &inner);
  const RECT list = BoundsIn(handle(), Control(CmbNotes));
  const RECT find = BoundsIn(handle(), Control(TxtNoteFind));
  const RECT tick = BoundsIn(handle(), Control(ChkNotePattern));
  const RECT count = BoundsIn(handle(), Control(LabNoteFound));
  constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
  const LONG listHeight = list.bottom - list.top;
  const LONG lineHeight = find.bottom - find.top + 2 * find.left;
  const LONG bottom = isSearching_ ? inner.bottom - lineHeight : inner.bottom;
  SetWindowPos(Control(CmbNotes), nullptr, 0, 0, inner.right, listHeight, kFlags | SWP_NOMOVE);
  SetWindowPos(text_.handle(), nullptr, 0, listHeight, inner.right, std::max(bottom - listHeight, 0L), kFlags);
  const LONG countLeft = inner.right - (count.right - count.left) - find.left;
  const LONG tickLeft = countLeft - (tick.right - tick.left) - find.left;
  const LONG top = bottom + find.left;
  SetWindowPos(Control(TxtNoteFind), nullptr, find.left, top, std::max(tickLeft - 2 * find.left, 0L),
               find.bottom - find.top, kFlags);
  SetWindowPos(Control(ChkNotePattern), nullptr, tickLeft, top + find.left, 0, 0, kFlags | SWP_NOSIZE);
  SetWindowPos(Control(LabNoteFound), nullptr, countLeft, top + find.left, 0, 0, kFlags | SWP_NOSIZE);
}

void FrmNote::FillList() {
  const HWND list = Control(CmbNotes);
  if (SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != FALSE) {
    return;  // the user is choosing
  }
  SendMessageW(list, CB_RESETCONTENT, 0, 0);
  listed_.clear();
  std::vector<NoteEntry> notes = desk_.Notes();
  if (std::ranges::count(notes, note_->name(), &NoteEntry::name) == 0) {
    notes.push_back({.name = note_->name(), .title = {}});  // not kept yet
  }
  for (const NoteEntry& entry : notes) {
    const bool isOwn = entry.name == note_->name();
    const std::wstring title = ToWide(isOwn ? TitleOfNote(Text()) : entry.title);
    const LRESULT index = SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(title.c_str()));
    listed_.push_back(entry.name);
    if (isOwn) {
      SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
  }
}

void FrmNote::ChooseFromList() {
  const LRESULT index = SendMessageW(Control(CmbNotes), CB_GETCURSEL, 0, 0);
  if (index >= 0 && listed_[static_cast<std::size_t>(index)] != note_->name()) {
    const std::string name = listed_[static_cast<std::size_t>(index)];
    FillList();  // the own one is shown here again
    desk_.Show(name);
  }
}

void FrmNote::ShowSearch(bool shown) {
  isSearching_ = shown;
  for (const int control : {TxtNoteFind, ChkNotePattern, LabNoteFound}) {
    ShowWindow(Control(control), shown ? SW_SHOW : SW_HIDE);
  }
  LayOut();
  if (shown) {
    FindPlaces();
    FocusOn(TxtNoteFind);
  } else {
    search_.Clear();
    text_.Mark({});
    SetFocus(text_.handle());
  }
}

void FrmNote::FindPlaces() {
  try {
    search_.Find(text_.PlainText(), ControlText(TxtNoteFind), IsChecked(ChkNotePattern), workbench_.regExpEngine());
    SetControlText(LabNoteFound, search_.CountText(std::nullopt));
  } catch (const RegExpSyntaxError&) {
    search_.Clear();
    SetControlText(LabNoteFound, u"式有误");  // it is still being typed
  } catch (const RegExpTooComplex&) {
    search_.Clear();
    SetControlText(LabNoteFound, u"太复杂");
  }
  text_.Mark(search_.places());
}

void FrmNote::GoToPlace(bool forward) {
  if (!isSearching_) {
    ShowSearch(true);
    return;
  }
  const CHARRANGE selection = text_.Selection();
  const auto index = forward ? search_.From(static_cast<std::size_t>(selection.cpMax))
                             : search_.Before(static_cast<std::size_t>(selection.cpMin));
  if (index) {
    text_.Select(search_.places()[*index]);
    text_.MarkVisible();
  }
  SetControlText(LabNoteFound, search_.CountText(index));
}

void FrmNote::ApplyLook(const NoteLook& look) {
  text_.ApplyLook(look);
  constexpr int kOpaque = 255;
  SetWindowLongPtrW(handle(), GWL_EXSTYLE, GetWindowLongPtrW(handle(), GWL_EXSTYLE) | WS_EX_LAYERED);
  SetLayeredWindowAttributes(handle(), 0, static_cast<BYTE>(look.opacity * kOpaque / kMostOpacity), LWA_ALPHA);
  if (look.width > 0 && look.height > 0) {
    const RECT kept = KeepOnScreen(
        {ToPixels(look.left), ToPixels(look.top), ToPixels(look.left + look.width), ToPixels(look.top + look.height)});
    SetWindowPos(handle(), nullptr, kept.left, kept.top, kept.right - kept.left, kept.bottom - kept.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  } else if (!isReady_) {
    StepAside();
  }
}

// From the notes that stand in the middle of the screen already.
void FrmNote::StepAside() {
  constexpr LONG kStep = 360;  // twips
  const auto others = static_cast<LONG>(desk_.OpenCount()) - 1;
  const POINT corner = CornerInTwips();
  MoveToTwips({corner.x + others * kStep, corner.y + others * kStep});
}

void FrmNote::ReadPlace(NoteLook& look) const {
  RECT bounds{};
  GetWindowRect(handle(), &bounds);
  look.left = ToTwips(bounds.left);
  look.top = ToTwips(bounds.top);
  look.width = ToTwips(bounds.right - bounds.left);
  look.height = ToTwips(bounds.bottom - bounds.top);
}

}  // namespace scrivanta
