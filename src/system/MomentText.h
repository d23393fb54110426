// Moments and distances of time as people write them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "text/FileTimes.h"

namespace scrivanta {

// What is written of a moment: date, time of day, or both.
struct PartialMoment {
  std::optional<std::chrono::local_days> date = {};
  std::optional<FileTicks> time = {};  // since midnight

  bool operator==(const PartialMoment&) const = default;

  // The moment with what is written here in place of its own.
  LocalFileMoment AppliedTo(LocalFileMoment moment) const;
};

// "2020-01-02 03:04:05", "2020/1/2", "2020年1月2日 3:04", "03:04:05.25"; a "T" may stand between date and time. Nothing
// for what is no such text or no day of the calendar.
std::optional<PartialMoment> ParseMoment(std::u16string_view text);

// The parts of a moment as texts of digits; an empty one counts as missing. A year of two digits is of 1970 to 2069.
struct MomentParts {
  std::u16string year, month, day, hour, minute, second, fraction;
};
std::optional<PartialMoment> MomentOfParts(const MomentParts& parts);

// "+1d", "-2h30m", "1天12小时", "+1:30:00", a number alone counts seconds. Weeks, days, hours, minutes and seconds by
// letters, English or Chinese words; a sign holds until the next. Nothing for what is no such text.
std::optional<FileTicks> ParseShift(std::u16string_view text);

// "2020-01-02 03:04:05"; smaller parts are left out.
std::u16string MomentText(LocalFileMoment moment);

}  // namespace scrivanta
