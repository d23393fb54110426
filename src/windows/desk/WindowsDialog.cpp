#include "windows/desk/WindowsDialog.h"

#include <algorithm>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

std::u16string NameOf(const DeskWindow& window) {
  return window.caption.empty() ? window.className : window.caption;
}

std::u16string RowText(const DeskLists& lists, const DeskWindow& window) {
  std::u16string text = window.caption.empty() ? std::u16string() : u"“" + window.caption + u"” ";
  text += window.className;
  if (window.parent == 0) {
    text += u"　" + lists.ProcessName(window.process);
  }
  return window.isVisible ? text : text + u"　（看不见）";
}

}  // namespace

void WindowsDialog::Read() {
  lists_ = {.windows = desk_.Windows(), .processes = desk_.Processes()};
}

void WindowsDialog::Refresh(WindowsView& view) {
  Read();
  Show(view);
}

void WindowsDialog::Show(WindowsView& view) {
  const std::u16string filter = view.Filter();
  windows_ = FilterWindows(lists_, filter, view.WithHidden());
  processes_ = FilterProcesses(lists_, filter);
  std::vector<WindowRow> rows;
  for (const ListedWindow& listed : windows_) {
    rows.push_back(
        {.depth = listed.depth, .text = RowText(lists_, lists_.windows[listed.index]), .isOpen = !filter.empty()});
  }
  view.ShowWindows(rows);
  std::vector<ProcessRow> processRows;
  for (const std::size_t index : processes_) {
    const DeskProcess& process = lists_.processes[index];
    processRows.push_back({.name = process.name,
                           .id = DecimalText(process.id),
                           .memory = MemoryText(process.memory),
                           .windows = DecimalText(lists_.CountWindows(process.id)),
                           .path = process.path});
  }
  view.ShowProcesses(processRows);
  ShowChosen(view);
  view.ShowRemark(DecimalText(windows_.size()) + u"个窗口和控件，" + DecimalText(processes_.size()) + u"个进程");
}

// The row of the tree, and what stands beside it.
void WindowsDialog::ShowChosen(WindowsView& view) {
  const auto row = std::ranges::find_if(windows_, [this](const ListedWindow& listed) {
    return chosen_ && lists_.windows[listed.index].IsSameAs(*chosen_);
  });
  if (row == windows_.end()) {
    chosen_.reset();
    view.ShowDetails(u"");
    view.ShowText(u"");
    return;
  }
  chosen_ = lists_.windows[row->index];
  view.ChooseWindow(static_cast<std::size_t>(row - windows_.begin()));
  view.ShowDetails(DescribeWindow(lists_, *chosen_));
  std::u16string text;
  try {
    text = desk_.Text(chosen_->handle);
  } catch (const WindowDeskError& error) {
    view.ShowRemark(error.chinese());
  }
  view.ShowText(text);
}

void WindowsDialog::Choose(WindowsView& view, std::size_t row) {
  chosen_ = lists_.windows[windows_.at(row).index];
  view.ShowRemark(u"");
  ShowChosen(view);
}

std::optional<DeskWindow> WindowsDialog::WindowAt(ScreenPoint point) const {
  const WindowHandle top = desk_.TopWindowAt(point);
  const DeskWindow* const found = top != 0 ? lists_.WindowOf(ControlAt(lists_, top, point)) : nullptr;
  return found != nullptr ? std::optional(*found) : std::nullopt;
}

void WindowsDialog::Tell(WindowsView& view, ScreenPoint point) {
  const std::optional<DeskWindow> window = WindowAt(point);
  view.ShowRemark(window ? DecimalText(point.x) + u", " + DecimalText(point.y) + u"　" + RowText(lists_, *window)
                         : std::u16string());
}

void WindowsDialog::ChooseAt(WindowsView& view, ScreenPoint point) {
  Read();
  chosen_ = WindowAt(point);
  const auto isListed = [this, &view] {
    return std::ranges::any_of(
        FilterWindows(lists_, view.Filter(), view.WithHidden()),
        [this](const ListedWindow& listed) { return lists_.windows[listed.index].IsSameAs(*chosen_); });
  };
  if (chosen_ && !isListed()) {
    view.SetFilter(u"");
    if (!isListed()) {
      view.SetWithHidden(true);
    }
  }
  Show(view);
}

// As it is now.
DeskWindow WindowsDialog::Chosen() const {
  if (!chosen_) {
    throw ExplainedError("no window is chosen", u"先在左边选一个窗口或控件，或者把十字拖到它上面。");
  }
  const std::optional<DeskWindow> now = desk_.Find(chosen_->handle);
  if (!now || !now->IsSameAs(*chosen_)) {
    throw WindowDeskError(u"这个窗口已经不在了，请刷新：\n" + NameOf(*chosen_));
  }
  return *now;
}

DeskWindow WindowsDialog::ChosenOfOthers() const {
  DeskWindow window = Chosen();
  if (window.process == desk_.OwnProcess()) {
    throw ExplainedError("an own window", u"这是本程序自己的窗口，不能这样改它。");
  }
  return window;
}

void WindowsDialog::Change(WindowsView& view, const std::function<void()>& change, const std::u16string& remark) {
  change();
  Refresh(view);
  view.ShowRemark(remark);
}

void WindowsDialog::BringUp(WindowsView& view) {
  const DeskWindow window = Chosen();
  Change(
      view, [&] { desk_.BringUp(window.handle); }, u"已放到前面：" + NameOf(window));
}

void WindowsDialog::SetVisible(WindowsView& view, bool visible) {
  const DeskWindow window = ChosenOfOthers();
  // Else it could not be shown again: it would be in the tree no more.
  view.SetWithHidden(view.WithHidden() || !visible);
  Change(
      view, [&] { desk_.Show(window.handle, visible); }, (visible ? u"已显示：" : u"已隐藏：") + NameOf(window));
}

void WindowsDialog::Move(WindowsView& view) {
  const DeskWindow window = ChosenOfOthers();
  const WindowBounds& old = window.bounds;
  const std::u16string preset = DecimalText(old.corner.x) + u" " + DecimalText(old.corner.y) + u" " +
                                DecimalText(old.width) + u" " + DecimalText(old.height);
  const std::u16string answer =
      workbench_.prompts().Input({.prompt = u"移到哪里、多大（左 上 宽 高，像素）：", .preset = preset});
  if (!answer.empty()) {
    const WindowBounds bounds = ParseBounds(answer);
    Change(
        view, [&] { desk_.Move(window.handle, bounds); }, u"已移动：" + NameOf(window) + u"，原来在 " + preset);
  }
}

void WindowsDialog::SwitchOnTop(WindowsView& view) {
  const DeskWindow window = Chosen();
  if (window.parent != 0) {
    throw ExplainedError("a control", u"只有窗口能总在前面，控件不能。");
  }
  Change(
      view, [&] { desk_.KeepOnTop(window.handle, !window.isOnTop); },
      (window.isOnTop ? u"不再总在前面：" : u"总在前面：") + NameOf(window));
}

void WindowsDialog::Close(WindowsView& view) {
  const DeskWindow window = ChosenOfOthers();
  const Message question{.text = u"关闭窗口“" + NameOf(window) + u"”？\n和按它的关闭按钮一样，它可以先问要不要存盘。",
                         .buttons = Buttons::kYesNo,
                         .icon = Icon::kQuestion,
                         .defaultAnswer = Answer::kNo};
  if (workbench_.prompts().Ask(question) == Answer::kYes) {
    Change(
        view, [&] { desk_.Close(window.handle); }, u"已请它关闭：" + NameOf(window));
  }
}

void WindowsDialog::SetText(WindowsView& view) {
  const DeskWindow window = ChosenOfOthers();
  const std::u16string text = view.Text();
  Change(
      view, [&] { desk_.SetText(window.handle, text); }, u"已改文字：" + NameOf(window));
}

void WindowsDialog::PutTextIntoDocument(WindowsView& view) {
  const std::u16string text = desk_.Text(Chosen().handle);
  workbench_.editor().ReplaceSelection(text);
  view.ShowRemark(u"已放入文档" + DecimalText(text.size()) + u"个字符");
}

void WindowsDialog::EndProcess(WindowsView& view, std::size_t row) {
  const DeskProcess process = lists_.processes[processes_.at(row)];
  std::u16string text = u"结束进程“" + process.name + u"”（" + DecimalText(process.id) + u"）？\n";
  const bool isOwn = process.id == desk_.OwnProcess();
  const bool isSystem = IsSystemProcess(process);
  if (isOwn) {
    text += u"这是本程序自己，结束了它，现在的文档就不再存盘。";
  } else if (isSystem) {
    text += u"这是系统的进程，结束了它，系统可能停止工作。";
  } else {
    text += u"它没有机会存盘，没有存的内容会丢失。";
  }
  const Message question{.text = text,
                         .buttons = Buttons::kYesNo,
                         .icon = isOwn || isSystem ? Icon::kWarning : Icon::kQuestion,
                         .defaultAnswer = Answer::kNo};
  if (workbench_.prompts().Ask(question) == Answer::kYes) {
    Change(
        view, [&] { desk_.EndProcess(process); },
        u"已结束进程：" + process.name + u"（" + DecimalText(process.id) + u"）");
  }
}

void WindowsDialog::PutWindowsIntoDocument(WindowsView& view) {
  workbench_.editor().ReplaceSelection(WindowTable(lists_, windows_));
  view.ShowRemark(u"已放入文档" + DecimalText(windows_.size()) + u"行");
}

void WindowsDialog::PutProcessesIntoDocument(WindowsView& view) {
  workbench_.editor().ReplaceSelection(ProcessTable(lists_, processes_));
  view.ShowRemark(u"已放入文档" + DecimalText(processes_.size()) + u"行");
}

}  // namespace scrivanta
