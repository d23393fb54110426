// A month and a year of the calendar, written as rich text.
#pragma once

#include <optional>

#include "calendar/RtfPage.h"

namespace scrivanta {

struct PageStyle {
  bool mondayFirst = true;
  std::optional<Day> today = {};   // marked, where it is on the page
  std::optional<Day> chosen = {};  // the same
};

// A month of the Gregorian calendar, from 1.
CalendarPage MonthPage(int year, unsigned month, const PageStyle& style);
CalendarPage YearPage(int year, const PageStyle& style);

}  // namespace scrivanta
