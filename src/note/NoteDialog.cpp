#include "note/NoteDialog.h"

#include <algorithm>

#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

void NoteDialog::Open(NoteView& view) {
  const Note note = store_.Read(name_);
  look_ = note.look;
  view.ApplyLook(look_);
  view.SetText(note.text);
  // It is open from now on, and to be found after a kill.
  isKept_ = look_.isOpen && !note.text.empty();
  look_.isOpen = true;
}

void NoteDialog::NoteChange(Time now) {
  isKept_ = false;
  first_ = first_.value_or(now);
  last_ = now;
}

bool NoteDialog::Tick(const NoteView& view, Time now) {
  const bool isDue = first_ && (now - last_ >= kPause || now - *first_ >= kMost);
  if (isDue) {
    first_.reset();
    Keep(view);
  }
  return isDue;
}

void NoteDialog::Close(const NoteView& view, bool byUser) {
  first_.reset();
  isKept_ = isKept_ && !byUser;
  look_.isOpen = !byUser;
  if (!isKept_) {
    Keep(view);
  }
}

bool NoteDialog::Delete() {
  const Answer answer = workbench_.prompts().Ask({.text = u"删除这张便笺？删除后不能恢复。",
                                                  .buttons = Buttons::kYesNo,
                                                  .icon = Icon::kQuestion,
                                                  .defaultAnswer = Answer::kNo});
  if (answer != Answer::kYes) {
    return false;
  }
  store_.Remove(name_);
  first_.reset();
  return true;
}

void NoteDialog::PutIntoDocument(const NoteView& view) {
  const std::u16string selected = view.SelectedText();
  const std::u16string text = selected.empty() ? view.Text() : selected;
  workbench_.editor().ReplaceSelection(text);
  workbench_.ShowStatus(u"已从便笺送来 " + DecimalText(text.size()) + u" 个字符");
}

void NoteDialog::TakeText(NoteView& view, const std::u16string& text, Time now) {
  const std::u16string before = view.Text();
  view.Append((before.empty() || before.ends_with(u"\r\n") ? u"" : u"\r\n") + text);
  NoteChange(now);
}

void NoteDialog::AskForFont(NoteView& view, Time now) {
  const std::u16string line = workbench_.prompts().Input({.prompt = u"便笺的字体：", .preset = FontToLine(look_.font)});
  if (!line.empty()) {
    view.ReadPlace(look_);
    look_.font = ApplyFontLine(look_.font, line);
    view.ApplyLook(look_);
    NoteChange(now);
  }
}

void NoteDialog::AskForOpacity(NoteView& view, Time now) {
  const std::u16string answer = workbench_.prompts().Input(
      {.prompt = u"不透明度，20（几乎看不见）到 100（不透明）：", .preset = DecimalText(look_.opacity)});
  if (!answer.empty()) {
    view.ReadPlace(look_);
    look_.opacity = static_cast<int>(std::clamp<long long>(LeadingWholeNumber(answer), kLeastOpacity, kMostOpacity));
    view.ApplyLook(look_);
    NoteChange(now);
  }
}

void NoteDialog::SetPaper(NoteView& view, std::uint32_t colour, Time now) {
  view.ReadPlace(look_);
  look_.paper = colour;
  view.ApplyLook(look_);
  NoteChange(now);
}

void NoteDialog::Keep(const NoteView& view) {
  const std::u16string text = view.Text();
  if (!text.empty() || store_.Has(name_)) {  // nothing was ever written into a new one
    view.ReadPlace(look_);
    store_.Write(name_, {.text = text, .look = look_});
  }
  isKept_ = true;
}

}  // namespace scrivanta
