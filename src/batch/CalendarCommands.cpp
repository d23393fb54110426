#include <memory>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "calendar/DayReport.h"
#include "calendar/LunarCalendar.h"
#include "text/DecimalText.h"
#include "text/Encoding.h"

namespace scrivanta {

namespace {

constexpr int kFirstYear = YearOf(kFirstDay);
constexpr int kLastYear = YearOf(kLastDay);

struct LunarOptions {
  std::string date;
  std::string lunarDate;
  int year = 0;    // 0: not asked for
  int months = 0;  // the same
};

void WriteLine(BatchContext& context, const std::u16string& line) {
  context.output.Write(Encode(context.encoding, line + u"\r\n"));
}

Day UsableDay(const std::optional<Day>& day, const std::string& argument) {
  if (!day) {
    throw UnusableArguments("no day from 1900-01-01 to 2100-12-31: " + argument);
  }
  return *day;
}

ExitStatus WriteYear(BatchContext& context, int year) {
  for (Day day = FirstDayOfYear(year); YearOf(day) == year; day += std::chrono::days{1}) {
    WriteLine(context, DayLine(day));
  }
  return ExitStatus::kDone;
}

ExitStatus WriteMonths(BatchContext& context, int year) {
  for (const LunarMonth& month : MonthsOfLunarYear(year)) {
    WriteLine(context, DayText(month.first) + u'\t' + (month.isLeap ? u"L" : u"") + DecimalText(month.number) + u'\t' +
                           DecimalText(month.days));
  }
  return ExitStatus::kDone;
}

ExitStatus RunLunar(BatchContext& context, const LunarOptions& options) {
  if (options.year != 0) {
    return WriteYear(context, options.year);
  }
  if (options.months != 0) {
    return WriteMonths(context, options.months);
  }
  const bool isLunar = !options.lunarDate.empty();
  const std::string& argument = isLunar ? options.lunarDate : options.date;
  const std::u16string text = Decode(Encoding::kUtf8, argument);
  WriteLine(context, DayLine(UsableDay(isLunar ? ParseLunarDay(text) : ParseDay(text), argument)));
  return ExitStatus::kDone;
}

BatchWork ConfigureLunar(CLI::App& parser) {
  const auto options = std::make_shared<LunarOptions>();
  CLI::Option_group* what = parser.add_option_group("What", "One of these");
  what->add_option("DATE", options->date, "A day: 2033-12-22");
  what->add_option("--from-lunar", options->lunarDate, "A lunar day: 2033-闰11-1 (L for 闰 does as well)")
      ->type_name("DATE");
  const auto addYear = [what](const char* name, int& year, const char* description) {
    what->add_option(name, year, description)
        ->check(CLI::Range(kFirstYear, kLastYear).description(""))
        ->type_name("YEAR");
  };
  addYear("--year", options->year, "Every day of a year, 1900 to 2100, from January 1st on");
  addYear("--months", options->months,
          "The months of a lunar year: first day, 1 to 12 or L1 to L12 for a leap month, number of days");
  what->require_option(1);
  return [options](BatchContext& context) { return RunLunar(context, *options); };
}

}  // namespace

std::vector<BatchCommand> CalendarBatchCommands() {
  return {{.name = "lunar",
           .description = "The lunar calendar: of a day its lunar date, stems and branches, terms and festivals",
           .example = "scrivanta-batch lunar 2033-12-22",
           .configure = ConfigureLunar,
           .takesInput = false}};
}

}  // namespace scrivanta
