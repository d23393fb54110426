// The window of the calendar. It stays open beside the document.
#pragma once

#include <windows.h>

#include <memory>

#include "calendar/CalendarDialog.h"
#include "shell/workbench/ScrivantaSubsystem.h"
#include "win/Dialog.h"
#include "win/RichEdit.h"

namespace scrivanta {

class FrmCalendar final : public Dialog, private CalendarView {
 public:
  FrmCalendar(const SubsystemHost& subsystemHost, Workbench& workbench);

  // Opens the window, or brings it to the front.
  void Show(HWND owner) { ShowModeless(owner); }

 private:
  void OnInit() override;
  bool OnCommand(int controlId, int notification) override;
  void OnClose() override;
  void MakePage();
  std::optional<LRESULT> OnPageMessage(UINT message, WPARAM wParam, LPARAM lParam);
  bool OnPageKey(WPARAM key);
  bool Press(int controlId);
  bool Turn(int controlId);

  void ShowPage(const CalendarPage& page) override;
  void ShowDetails(const std::u16string& text) override;
  void SetDates(const std::u16string& date, const std::u16string& lunarDate) override;
  std::u16string DateBox() const override;
  std::u16string LunarDateBox() const override;
  std::u16string FromBox() const override;
  std::u16string ToBox() const override;
  std::u16string DaysBox() const override;
  void SetFromBox(const std::u16string& text) override;
  void SetToBox(const std::u16string& text) override;
  void SetDistance(const std::u16string& text) override;
  bool ShowsYear() const override;
  bool BeginsWithMonday() const override;
  void SetOptions(bool showsYear, bool beginsWithMonday) override;
  DialogPlace Place() const override;
  void SetPlace(const DialogPlace& place) override;
  void Print(const CalendarPage& page) override;

  const SubsystemServices& services_;
  Workbench& workbench_;
  CalendarDialog logic_;
  RichEdit page_;
  std::unique_ptr<Subclass> pageKeys_;
  std::u16string shownName_;
};

}  // namespace scrivanta
