// A page of a calendar, as rich text (RTF 1.9) and as text, on the way to being written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/Day.h"

namespace scrivanta {

enum class PageColour { kOrdinary, kRest, kTerm, kFestival, kFaint };
enum class PageGround { kNone, kToday, kChosen };

struct PageFormat {
  PageColour colour = PageColour::kOrdinary;
  PageGround ground = PageGround::kNone;
  bool bold = false;
  bool underline = false;
  int halfPoints = 20;
};

// Where a day stands, in characters of the text from 0, a line break counting one.
struct DayPlace {
  Day day = {};
  std::size_t start = 0;
  std::size_t length = 0;
};

struct CalendarPage {
  std::u16string name;  // "2033年12月"
  std::string rtf;
  std::u16string text;  // lines separated by CR LF
  std::vector<DayPlace> days;
};

class RtfPage {
 public:
  explicit RtfPage(std::u16string name);

  // Of the lines from here on, in twips from the left.
  void SetTabs(const std::vector<int>& stops);
  void Write(std::u16string_view text, const PageFormat& format = {});
  void WriteDay(Day day, std::u16string_view text, const PageFormat& format);
  void Tab();
  void EndLine();
  CalendarPage Finish();

 private:
  CalendarPage page_;
  std::size_t length_ = 0;  // of the text, a line break counting one
};

}  // namespace scrivanta
