// What FrmCalendar does, without its window. The window stays open beside the document.
#pragma once

#include <cstddef>
#include <string>

#include "calendar/CalendarPages.h"
#include "shell/workbench/DialogPlace.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

// The window's controls.
class CalendarView : public Interface {
 public:
  virtual void ShowPage(const CalendarPage& page) = 0;
  virtual void ShowDetails(const std::u16string& text) = 0;  // TxtDetails
  // The boxes of the chosen day: TxtDate, TxtLunarDate.
  virtual void SetDates(const std::u16string& date, const std::u16string& lunarDate) = 0;
  virtual std::u16string DateBox() const = 0;       // TxtDate
  virtual std::u16string LunarDateBox() const = 0;  // TxtLunarDate
  virtual std::u16string FromBox() const = 0;       // TxtFrom
  virtual std::u16string ToBox() const = 0;         // TxtTo
  virtual std::u16string DaysBox() const = 0;       // TxtDays
  virtual void SetFromBox(const std::u16string& text) = 0;
  virtual void SetToBox(const std::u16string& text) = 0;
  virtual void SetDistance(const std::u16string& text) = 0;  // LabDistance
  virtual bool ShowsYear() const = 0;                        // OptYear, else OptMonth
  virtual bool BeginsWithMonday() const = 0;                 // ChkMonday
  virtual void SetOptions(bool showsYear, bool beginsWithMonday) = 0;
  virtual DialogPlace Place() const = 0;
  virtual void SetPlace(const DialogPlace& place) = 0;
  // Asks for a printer and prints the page that is shown.
  virtual void Print(const CalendarPage& page) = 0;
};

enum class CalendarUnit { kDay, kMonth, kYear };

class CalendarDialog {
 public:
  explicit CalendarDialog(Workbench& workbench) : workbench_(workbench) {}

  // The window opens: it shows today, the way it was shown last.
  void Open(CalendarView& view);
  void Close(const CalendarView& view);
  // One of the options was clicked.
  void TakeOptions(CalendarView& view);

  // Forward, or back when the number is negative; at the calendar's ends it stops.
  void Move(CalendarView& view, CalendarUnit unit, int number);
  void GoToToday(CalendarView& view);
  void GoToDate(CalendarView& view);       // CmdGoTo
  void GoToLunarDate(CalendarView& view);  // CmdGoToLunar
  // A character of the page was clicked, counted as in DayPlace.
  void ChooseAt(CalendarView& view, std::size_t position);

  void Measure(CalendarView& view);  // CmdDistance
  void AddDays(CalendarView& view);  // CmdAddDays: from TxtFrom, into TxtTo

  // What is shown, without the mark of the chosen day. They throw what the work throws.
  void Insert(CalendarView& view);  // CmdInsert: in place of the document's selection
  void Print(CalendarView& view);   // CmdPrint
  void Save(CalendarView& view);    // CmdSave: as a file of rich text

 private:
  void Choose(CalendarView& view, Day day);
  void Refresh(CalendarView& view);
  CalendarPage PageOf(const CalendarView& view, std::optional<Day> chosen) const;
  Day Today() const;
  // Nothing, after a message, when there is no such day.
  std::optional<Day> DayOrMessage(const std::optional<Day>& day, const std::u16string& text);

  Workbench& workbench_;
  Day chosen_ = kFirstDay;
  CalendarPage page_;  // as it is shown
};

}  // namespace scrivanta
