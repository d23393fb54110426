#include "window/soak/Soak.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <numeric>
#include <span>
#include <utility>

#include <psapi.h>
#include <winternl.h>

#include "crypto/CryptoCommands.h"
#include "crypto/FrmSecretControls.h"
#include "crypto/SecretDialog.h"
#include "lines/DelLinesDialog.h"
#include "lines/FrmDelLineFromXtoYControls.h"
#include "lines/FrmSortParametersControls.h"
#include "lines/LineCommands.h"
#include "lines/SortDialog.h"
#include "search/SearchCommands.h"
#include "shell/window/Capitals.h"
#include "shell/window/FrmOptionsControls.h"
#include "text/Surrogates.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"

namespace scrivanta {

namespace {

// Grown beyond this the document is begun again, so that the steps stay short.
constexpr std::size_t kLongestText = 6000;

std::u16string Number(std::size_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::size_t CountWindows() {
  std::size_t count = 0;
  const auto countOne = [](HWND, LPARAM parameter) -> BOOL {
    ++*reinterpret_cast<std::size_t*>(parameter);
    return TRUE;
  };
  for (const HWND window : TopWindows(GetCurrentProcessId())) {
    ++count;
    EnumChildWindows(window, countOne, reinterpret_cast<LPARAM>(&count));
  }
  return count;
}

// Of this process. GetProcessHandleCount says 0 under Wine; the list of all handles there are is right.
std::size_t CountHandles() {
  std::vector<std::byte> list(16U << 20U);
  const auto* information = reinterpret_cast<const SYSTEM_HANDLE_INFORMATION*>(list.data());
  if (NtQuerySystemInformation(SystemHandleInformation, list.data(), static_cast<ULONG>(list.size()), nullptr) < 0) {
    throw DriverFailure("the handles cannot be counted");
  }
  const std::span<const SYSTEM_HANDLE_ENTRY> handles(information->Handle, information->Count);
  return static_cast<std::size_t>(std::ranges::count(handles, GetCurrentProcessId(), &SYSTEM_HANDLE_ENTRY::OwnerPid));
}

// How many objects of the graphics system the process may still have: Wine does not say how many it has.
std::size_t CountRoomForGdiObjects() {
  std::vector<HGDIOBJ> objects;
  while (const HGDIOBJ object = CreateSolidBrush(RGB(1, 2, 3))) {
    objects.push_back(object);
  }
  std::ranges::for_each(objects, &DeleteObject);
  return objects.size();
}

}  // namespace

std::string SoakFigures::Text() const {
  return std::to_string(handles) + " handles, " + std::to_string(windows) + " windows, " + "room for " +
         std::to_string(roomForGdiObjects) + " GDI objects, " + std::to_string(megabytes) + " MB";
}

SoakFigures MeasureProcess() {
  SoakFigures figures;
  figures.handles = CountHandles();
  figures.windows = CountWindows();
  figures.roomForGdiObjects = CountRoomForGdiObjects();
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof(memory);
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof(memory));
  figures.megabytes = memory.PagefileUsage >> 20U;
  return figures;
}

// The dialogs of the commands, on the model: what is typed into them stands here.
class Soak::Dialogs final : public LineDialogs,
                            public SearchDialogs,
                            public CryptoDialogs,
                            private DelLinesView,
                            private SortView,
                            private SecretView {
 public:
  void ShowDelLines(DelLinesDialog& dialog) override { dialog.Delete(*this); }
  void ShowSort(Workbench& workbench) override {
    SortDialog dialog(workbench);
    dialog.Capture(*this);
    dialog.Sort(*this);
  }
  void ShowFind(Workbench&, FindState&, FindDialogFocus) override {}
  void ShowRegularTest(Workbench&) override {}
  void ShowSecret(SecretDialog& dialog) override { dialog.Accept(*this); }

  std::u16string first;
  std::u16string last;
  bool byNumber = false;
  bool descending = false;
  std::u16string key;
  bool rijndael = false;

 private:
  std::u16string Start() const override { return first; }
  std::u16string End() const override { return last; }
  std::u16string From() const override { return first; }
  std::u16string To() const override { return last; }
  SortBy By() const override { return byNumber ? SortBy::kNumber : SortBy::kString; }
  bool IsDescending() const override { return descending; }
  void SetRange(const std::u16string& from, const std::u16string& to) override {
    first = from;
    last = to;
  }
  void SetTotal(const std::u16string&) override {}
  std::u16string KeyText() const override { return key; }
  void ClearKeyText() override {}
  std::u16string RepeatedText() const override { return key; }
  bool RijndaelChecked() const override { return rijndael; }
  bool SealedChecked() const override { return false; }
  void FocusKeyText() override {}
  void CloseView() override {}
};

Soak::Soak(App& app, const TestFolder& folder, std::uint64_t seed)
    : app_(app),
      document_(folder.Write(u"日记.txt", Utf8(u"第一行\r\n"))),
      random_(seed),
      seed_(seed),
      dialogs_(std::make_unique<Dialogs>()) {
  RegisterLineCommands(commands_, *dialogs_);
  RegisterSearchCommands(commands_, *dialogs_);
  RegisterCryptoCommands(commands_, *dialogs_);
  app_.Open(document_);
  text_ = u"第一行\r\n";
  app_.ExpectText(text_);
  effects_ = app_.Editor().Effects();
  states_.Reset(Present());
}

Soak::~Soak() = default;

const std::vector<Soak::Kind>& Soak::Kinds() {
  static const std::vector<Kind> kKinds = {{"insert", 22, &Soak::InsertText},
                                           {"type", 3, &Soak::TypeText},
                                           {"delete", 5, &Soak::Delete},
                                           {"clipboard", 8, &Soak::CutCopyPaste},
                                           {"capitals", 3, &Soak::Capitals},
                                           {"format", 12, &Soak::Format},
                                           {"line command", 22, &Soak::RunLineCommand},
                                           {"search command", 5, &Soak::RunSearchCommand},
                                           {"delete lines", 4, &Soak::DeleteLines},
                                           {"sort", 4, &Soak::Sort},
                                           {"shuffle", 2, &Soak::Shuffle},
                                           {"encrypt", 2, &Soak::Encrypt},
                                           {"undo", 16, &Soak::Undo},
                                           {"redo", 8, &Soak::Redo},
                                           {"save and open", 2, &Soak::SaveAndOpen},
                                           {"cancel dialogs", 3, &Soak::CancelDialogs},
                                           {"minimise", 1, &Soak::Minimise}};
  return kKinds;
}

void Soak::Run(std::size_t steps) {
  const auto& kinds = Kinds();
  const auto total = static_cast<std::size_t>(
      std::accumulate(kinds.begin(), kinds.end(), 0, [](int sum, const Kind& kind) { return sum + kind.weight; }));
  for (std::size_t step = 1; step <= steps; ++step) {
    auto drawn = static_cast<int>(Random(total));
    const auto kind =
        std::ranges::find_if(kinds, [&drawn](const Kind& candidate) { return (drawn -= candidate.weight) < 0; });
    try {
      if (text_.size() > kLongestText) {
        StartAgain();
      }
      SelectRandomly();
      steps_ += std::string(" ") + kind->name;
      (this->*kind->run)();
    } catch (const DriverFailure& failure) {
      throw DriverFailure("seed " + std::to_string(seed_) + ", step " + std::to_string(step) + " (" + kind->name +
                          "), text: " + Shown(text_) + "\nsteps:" + steps_ + "\n" + failure.what());
    }
  }
}

void Soak::InsertText() {
  const std::u16string inserted = RandomText(60);
  app_.Editor().Insert(inserted);
  ExpectReplaced(inserted, true);
}

void Soak::TypeText() {
  const std::u16string typed = OneOf(std::array<std::u16string, 4>{u"字", u"a", u"一", u"x"});
  app_.Type(typed);
  ExpectReplaced(typed, true);
}

void Soak::Delete() {
  if (!selection_.empty()) {
    app_.Menu("mnudelete");
    ExpectReplaced({});
  }
}

void Soak::CutCopyPaste() {
  if (Random(2) == 0 && clipboard_) {
    app_.Menu("mnuPaste");
    ExpectReplaced(*clipboard_);
  } else if (!selection_.empty()) {
    clipboard_ = Selected();
    const bool cut = Random(2) == 0;
    app_.Menu(cut ? "mnuCut" : "mnuCopy");
    if (cut) {
      ExpectReplaced({});
    }
  }
}

void Soak::Capitals() {
  const std::u16string capitals = ToCapitals(Selected());
  if (!selection_.empty()) {
    app_.Menu("mnuAllcaps");
    if (capitals != Selected()) {
      ExpectReplaced(capitals);
    }
  }
}

void Soak::Format() {
  struct Effect {
    const char* command;
    int digit;
  };
  const Effect effect = OneOf(std::array{Effect{"mnuBold", 1}, Effect{"mnuItalic", 2}, Effect{"mnuUnderline", 4}});
  app_.Menu(effect.command);
  app_.Settle();
  app_.ExpectText(text_);
  NotePresent(false);
  // All of the selection has the effect now, or has it no more; nothing else has changed.
  int seen = 0;  // 1: some unit has it, 2: some has it not
  for (std::size_t at = 0; at < text_.size(); ++at) {
    const bool isSelected = at >= selection_.start.value && at < selection_.end().value;
    const int before = effectsBefore_[at] - '0';
    const int now = effects_[at] - '0';
    if (isSelected ? (before | effect.digit) != (now | effect.digit) : before != now) {
      throw DriverFailure("formatting has changed another effect, or another place: " + effectsBefore_ + "\nto " +
                          effects_);
    }
    if (isSelected && std::u16string_view(u"\r\n\t").find(text_[at]) == std::u16string_view::npos) {
      seen |= (now & effect.digit) != 0 ? 1 : 2;
    }
  }
  if (seen == 3) {
    throw DriverFailure(
        "formatting has left a part of the selection: " + effects_.substr(selection_.start.value, selection_.length) +
        "\nof " + Shown(Selected()) + "\nwhich was " +
        effectsBefore_.substr(selection_.start.value, selection_.length) + "\nand around it " + effects_);
  }
  if (!selection_.empty() && effects_ == effectsBefore_) {
    UndoUnseen();
  }
}

// The formats of line breaks and tabs are not seen: whether something was a step shows only when it is undone. Behind
// it something is put in that is seen, so that nothing is left to be redone.
void Soak::UndoUnseen() {
  if (app_.MenuEntry("mnuUndo").enabled) {
    app_.Menu("mnuUndo");
    text_ = app_.Text();
    effects_ = app_.Editor().Effects();
    if (Present() != states_.text() && !states_.Undo(Present())) {
      throw DriverFailure("undoing a format has led to a text that never was: " + Shown(Present()));
    }
  }
  SelectRandomly();
  InsertText();
}

void Soak::RunLineCommand() {
  struct Case {
    const char* command;
    Answers answers;
  };
  using enum Answer;
  static const std::vector<Case> kCases = {
      {"mnuDelEmptyLine", {}},
      {"mnuTrimLine", {}},
      {"mnuAddTAB", {}},
      {"mnuCopyAboveChar", {}},
      {"mnuStatistics", {}},
      {"mnuGotoLine", {u"2"}},
      {"mnuGotoLine", {u"100000"}},
      {"mnuGotoLine", {u""}},
      {"mnuFilterNeedLine", {u""}},
      {"mnuFilterNeedLine", {u"一", kNo}},
      {"mnuFilterNeedLine", {u"[a-f]", kYes}},
      {"mnuFilterRepeatLine", {kCancel}},
      {"mnuFilterRepeatLine", {kNo, kYes, kNo}},
      {"mnuFilterRepeatLine", {kNo, kNo, kYes}},
      {"mnuFilterRepeatLine", {kNo, kCancel}},
      {"mnuFilterRepeatLine", {kYes, u"[0-9]+", kYes}},
      {"mnuFilterContinueRepeatLine", {kYes}},
      {"mnuFilterContinueRepeatLine", {kNo}},
  };
  const Case& chosen = OneOf(kCases);
  if (chosen.command == std::string_view("mnuStatistics")) {
    Select({selection_.start, 0});  // it counts lines from the end of a selection that has a direction
  }
  RunOnBoth(chosen.command, chosen.answers);
}

void Soak::RunSearchCommand() {
  static const std::vector<std::pair<const char*, Answers>> kCases = {
      {"mnuRegGet", {u"[a-z]+"}},
      {"mnuRegGet", {u"没有这些字"}},
      {"mnuRegGet", {u""}},
      {"mnuRegReplace", {u"([0-9])([a-z])", u"\\2\\1"}},
      {"mnuRegReplace", {u"一", u""}},
  };
  const auto& [command, answers] = OneOf(kCases);
  RunOnBoth(command, answers);
}

void Soak::DeleteLines() {
  const std::size_t first = 1 + Random(4);
  dialogs_->first = Number(first);
  dialogs_->last = Number(first + Random(4));
  app_.Menu("mnuDelLineFromXtoY");
  DialogDriver dialog = app_.ExpectDialog(u"删除开始行至结束行");
  if (Random(4) == 0) {
    dialog.Close();
    app_.ExpectText(text_);
    return;
  }
  dialog.Type(TxtDelLineStart, dialogs_->first).Type(TxtDelLineEnd, dialogs_->last);
  RunOnModel("mnuDelLineFromXtoY");
  dialog.Press(CmdFrmDelLineFromXtoY);
  dialog.WaitUntilGone();
  ExpectModel();
}

void Soak::Sort() {
  app_.Menu("mnuSort");
  DialogDriver dialog = app_.ExpectDialog(u"文件排序");
  dialogs_->byNumber = Random(2) == 0;
  dialogs_->descending = Random(2) == 0;
  RunOnModel("mnuSort");
  dialog.Press(dialogs_->byNumber ? OptNumber : OptString).Press(dialogs_->descending ? OptJiangXi : OptShenXi);
  dialog.Press(CmdSort);
  dialog.Close();
  ExpectModel();
}

void Soak::Shuffle() {
  const auto sorted = [](std::u16string text) {
    std::ranges::sort(text);
    return text;
  };
  app_.Menu("mnuRandOrder");
  const std::u16string shuffled = app_.Text();
  if (sorted(shuffled) != sorted(text_)) {
    throw DriverFailure("shuffling has changed more than the order: " + Shown(shuffled));
  }
  Expect(shuffled);
}

// And back. The numeric cipher refuses characters that GBK lacks.
void Soak::Encrypt() {
  if (selection_.empty()) {
    return;
  }
  dialogs_->key = Number(Random(1'000'000));
  dialogs_->rijndael = Random(2) == 0;
  const std::u16string before = text_;
  const std::size_t behind = text_.size() - selection_.end().value;
  for (const char* command : {"mnuEncryptSelectedText", "mnuDeEncryptSelectedText"}) {
    RunOnModel(command);
    app_.Menu(command);
    DialogDriver dialog = app_.ExpectDialog(u"密钥");
    if (dialog.IsChecked(Check1) != dialogs_->rijndael) {
      dialog.Press(Check1);
    }
    dialog.Type(Text1, dialogs_->key).Press(Command1);
    dialog.WaitUntilGone();
    ExpectModel();
    if (text_ == before) {
      return;
    }
    Select({selection_.start, text_.size() - behind - selection_.start.value});
  }
  app_.ExpectText(before);
}

void Soak::Undo() {
  const bool offered = app_.MenuEntry("mnuUndo").enabled;
  if (offered != states_.canUndo()) {
    throw DriverFailure("undoing is offered where there is nothing to undo, or the other way round");
  }
  if (offered) {
    app_.Menu("mnuUndo");
    const std::u16string before = Present();
    text_ = app_.Text();
    effects_ = app_.Editor().Effects();
    if (!states_.Undo(Present())) {
      throw DriverFailure("undoing has led to a text that never was: " + Shown(Present()) + "\nfrom " + Shown(before) +
                          "\nwhich came from " + states_.Describe());
    }
  }
}

// A command that has changed nothing may have taken away what was to be redone.
void Soak::Redo() {
  if (!app_.MenuEntry("mnuRedo").enabled) {
    states_.ForgetUndone();
    return;
  }
  app_.Menu("mnuRedo");
  text_ = app_.Text();
  effects_ = app_.Editor().Effects();
  if (!states_.Redo(Present())) {
    throw DriverFailure("redoing has led to a text that never was: " + Shown(Present()));
  }
}

void Soak::SaveAndOpen() {
  app_.Menu("mnuSave");
  if (FindTopWindow(GetCurrentProcessId(), kDialogClass, u"Scrivanta") != nullptr) {
    app_.ExpectBox({.text = u"文档带有格式，存为纯文本时格式会丢失：\n" + document_.u16string() +
                            u"\n是否只存文字？（要保留格式，请另存为 .rtf 文件）",
                    .buttons = Buttons::kYesNo,
                    .icon = Icon::kWarning,
                    .defaultAnswer = Answer::kNo})
        .Answer(Answer::kYes);
  }
  app_.ExpectText(text_);
  // UTF-8 that could be taken for GBK is saved with a mark.
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (const std::string saved = ReadBytes(document_);
      saved.substr(saved.starts_with(kMark) ? kMark.size() : 0) != Utf8(text_)) {
    throw DriverFailure("the saved file does not hold the document: " + saved);
  }
  // A file without Chinese would be taken for GBK the next time, and one with nothing but Chinese would not.
  if (std::ranges::any_of(text_, [](char16_t unit) { return unit >= 0x800; })) {
    app_.Open(document_);
    app_.ExpectText(text_);
    effects_ = app_.Editor().Effects();
    states_.Reset(Present());
  }
}

void Soak::CancelDialogs() {
  app_.Menu("mnuSaveAs");
  app_.CancelFileDialog();
  app_.Menu("mnuOptions");
  app_.ExpectDialog(u"选项").Press(CmdQuit).WaitUntilGone();
  app_.Settle();
  app_.Menu("mnuFont");
  app_.ExpectDialog(u"Scrivanta").Close();
  app_.Menu("mnuFind");
  app_.ExpectDialog(u"查找").Close();
  app_.ExpectText(text_);
}

void Soak::Minimise() {
  app_.Minimise();
  app_.ClickTrayIcon();
  app_.ExpectText(text_);
}

void Soak::StartAgain() {
  Select({{0}, text_.size()});
  app_.Menu("mnudelete");
  ExpectReplaced({});
}

std::u16string Soak::RandomText(std::size_t longest) {
  static const std::vector<std::u16string> kPieces = {
      u"一", u"二", u"编辑",      u"标点，", u"。", u"Ａ", u"a",    u"b1",   u"word ",    u"XYZ",
      u"7",  u"42", u"-3.5",      u" ",      u"  ", u"\t", u"\r\n", u"\r\n", u"\r\n\r\n", u"C:\\a\\b.txt",
      u"😀",  u"é",  u"{\\rtf1 }", u"\"",     u"&x"};
  std::u16string text;
  for (std::size_t count = 1 + Random(longest); count > 0; --count) {
    text += OneOf(kPieces);
  }
  return text;
}

// Never within a line break or a pair of surrogates.
std::size_t Soak::RandomPosition() {
  std::size_t position = Random(text_.size() + 1);
  if (position > 0 && position < text_.size() && (text_[position] == u'\n' || IsLowSurrogate(text_[position]))) {
    --position;
  }
  return position;
}

void Soak::Select(TextRange range) {
  selection_ = range;
  app_.Editor().Select(range);
}

void Soak::SelectRandomly() {
  const std::size_t one = RandomPosition();
  const std::size_t other = Random(3) == 0 ? RandomPosition() : one;
  Select({{std::min(one, other)}, std::max(one, other) - std::min(one, other)});
}

void Soak::RunOnModel(std::string_view command, const Answers& answers) {
  testing::ScriptedPrompts& prompts = model_.prompts();
  prompts.messages.clear();
  prompts.inputs.clear();
  for (const auto& answer : answers) {
    std::visit([&prompts](const auto& scripted) { prompts.Will(scripted); }, answer);
  }
  model_.editor().Open(text_, selection_);
  commands_.Run(command, model_);
}

void Soak::RunOnBoth(std::string_view command, const Answers& answers) {
  RunOnModel(command, answers);
  app_.Menu(command);
  ExpectModel(answers);
}

// The questions and messages that the model has had, and its text.
void Soak::ExpectModel(const Answers& answers) {
  const testing::ScriptedPrompts& prompts = model_.prompts();
  auto message = prompts.messages.begin();
  auto input = prompts.inputs.begin();
  for (const auto& answer : answers) {
    if (const auto* button = std::get_if<Answer>(&answer)) {
      app_.ExpectBox(*message++).Answer(*button);
    } else {
      app_.AnswerInput(*input++, std::get<std::u16string>(answer));
    }
  }
  for (; message != prompts.messages.end(); ++message) {
    app_.ExpectBox(*message).Answer(Answer::kOk);
  }
  app_.Settle();
  const std::u16string before = text_;
  Expect(model_.editor().Text());
  ExpectLinesKeepEffects(before);
}

void Soak::Expect(const std::u16string& text, bool typed) {
  app_.ExpectText(text);
  text_ = text;
  NotePresent(typed);
}

std::u16string Soak::Present() const {
  return text_ + u"\n" + std::u16string(effects_.begin(), effects_.end());
}

void Soak::NotePresent(bool typed) {
  effectsBefore_ = std::exchange(effects_, app_.Editor().Effects());
  if (std::u16string present = Present(); present != states_.text()) {
    states_.Note(present, typed);
  }
}

void Soak::ExpectSameEffects(std::size_t before, std::size_t now, std::size_t length) const {
  if (effectsBefore_.compare(before, length, effects_, now, length) != 0) {
    throw DriverFailure("what has stayed has got other formats: " + effectsBefore_ + "\nfrom " +
                        std::to_string(before) + ", now\n" + effects_ + "\nfrom " + std::to_string(now) + ", " +
                        std::to_string(length) + " units");
  }
}

// A line that the selection cuts through may be gone, and one like it written by the command.
void Soak::ExpectLinesKeepEffects(const std::u16string& before) const {
  const auto placesOfLines = [](const std::u16string& text) {
    std::map<std::u16string, std::vector<std::size_t>> places;
    for (std::size_t begin = 0; begin <= text.size();) {
      const std::size_t end = std::min(text.find(u"\r\n", begin), text.size());
      places[text.substr(begin, end - begin)].push_back(begin);
      begin = end + 2;
    }
    return places;
  };
  const auto cuts = [this](TextPos edge, std::size_t begin, std::size_t length) {
    return !selection_.empty() && edge.value > begin && edge.value < begin + length;
  };
  const auto placesNow = placesOfLines(text_);
  for (const auto& [line, places] : placesOfLines(before)) {
    const auto now = placesNow.find(line);
    const bool isCut =
        cuts(selection_.start, places.front(), line.size()) || cuts(selection_.end(), places.front(), line.size());
    if (places.size() == 1 && !isCut && now != placesNow.end() && now->second.size() == 1) {
      ExpectSameEffects(places.front(), now->second.front(), line.size());
    }
  }
}

void Soak::ExpectReplaced(const std::u16string& replacement, bool typed) {
  std::u16string text = text_;
  text.replace(selection_.start.value, selection_.length, replacement);
  const std::size_t behind = text_.size() - selection_.end().value;
  Expect(text, typed);
  ExpectSameEffects(0, 0, selection_.start.value);
  ExpectSameEffects(effectsBefore_.size() - behind, effects_.size() - behind, behind);
}

}  // namespace scrivanta
