#!/usr/bin/env python3
"""Writes src/calendar/CalendarTable.cpp: the lunar years 1899 to 2100 and the solar terms of 1899 to 2100.

Usage: tools/make_calendar_table.py > src/calendar/CalendarTable.cpp
       tools/make_calendar_table.py --check    compares the file with what would be written; 77 without the library

The rules are those of GB/T 33661-2017: a month begins on the day of the new moon; the month of the winter solstice is the
eleventh; where thirteen months begin from one eleventh month to before the next, the first without a major term is a leap
month and has the number of the month before. The day is Beijing's: local mean time (UT+7:45:44) to the end of 1928, UTC+8
from then on.

Sun and moon are those of the library ERFA (BSD licence; Debian's liberfa1): its Earth is good to a second of the terms'
times and its moon to some twenty seconds of the new moons'. TT less civil time is
  to 1971    the polynomials of Espenak and Meeus (Five Millennium Canon of Solar Eclipses, 2006),
  to 2025    32.184 s and the leap seconds,
  from then  69.2 s + 0.1 s a year, the mean rate of the last ten years, + 0.00325 s a year and year, the long-term
             lengthening of the day (Stephenson, Morrison and Hohenkerk, 2016).
What lies within 90 seconds of a midnight after 2025 is listed as doubtful: the Earth may turn otherwise by then, and the day
that the authority announces holds.
"""

import argparse
import ctypes
import ctypes.util
import datetime
import math
import pathlib
import sys

TABLE = pathlib.Path(__file__).resolve().parent.parent / "src" / "calendar" / "CalendarTable.cpp"
FIRST_YEAR, LAST_YEAR = 1899, 2100
J2000 = 2451545.0
DAY = 86400.0
ZERO = datetime.date(1970, 1, 1)  # days are counted from here
ZERO_JD = 2440587.5
STANDARD_TIME = (datetime.date(1929, 1, 1) - ZERO).days
LOCAL_OFFSET, STANDARD_OFFSET = 7 * 3600 + 45 * 60 + 44, 8 * 3600
LIGHT_TIME_OF_AU = 499.004784 / DAY
LIGHT_TIME_OF_MOON = 1.28 / DAY
LAST_LEAP_SECONDS = 2025
DOUBTFUL_SECONDS = 90
# The almanac of the time had the new moon of 1906-04-23 23:52 on the next day, and so had the people.
HISTORICAL_MONTHS = {datetime.date(1906, 4, 23): datetime.date(1906, 4, 24)}

TT_LESS_UT = (  # to this year: around that one, coefficients in years
    (1920, 1900, (-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197)),
    (1941, 1920, (21.20, 0.84493, -0.076100, 0.0020936)),
    (1961, 1950, (29.07, 0.407, -1 / 233, 1 / 2547)),
    (1972, 1975, (45.45, 1.067, -1 / 260, -1 / 718)),
)
VECTOR, MATRIX, PV = ctypes.c_double * 3, ctypes.c_double * 9, ctypes.c_double * 6


def load_library():
    name = ctypes.util.find_library("erfa")
    if name is None:
        return None
    library = ctypes.CDLL(name)
    library.eraObl06.restype = ctypes.c_double
    return library


class Sky:
    """Apparent ecliptic longitudes of date, in radians; times are Julian days of TT."""

    def __init__(self, erfa):
        self.erfa = erfa

    def longitude(self, vector, tt):
        first, second = ctypes.c_double(J2000), ctypes.c_double(tt - J2000)
        matrix, of_date = MATRIX(), VECTOR()
        self.erfa.eraPnm06a(first, second, matrix)
        self.erfa.eraRxp(matrix, vector, of_date)
        in_longitude, in_obliquity = ctypes.c_double(), ctypes.c_double()
        self.erfa.eraNut06a(first, second, ctypes.byref(in_longitude), ctypes.byref(in_obliquity))
        obliquity = self.erfa.eraObl06(first, second) + in_obliquity.value
        x, y, z = of_date
        return math.atan2(y * math.cos(obliquity) + z * math.sin(obliquity), x)

    def earth(self, tt):
        heliocentric, barycentric = PV(), PV()
        self.erfa.eraEpv00(ctypes.c_double(J2000), ctypes.c_double(tt - J2000), heliocentric, barycentric)
        return heliocentric[:3]

    def sun(self, tt):
        """Light-time and aberration together show the sun where it was seen from the Earth of that moment."""
        distance = math.hypot(*self.earth(tt))
        return self.longitude(VECTOR(*(-part for part in self.earth(tt - distance * LIGHT_TIME_OF_AU))), tt)

    def moon(self, tt):
        vector = PV()
        self.erfa.eraMoon98(ctypes.c_double(J2000), ctypes.c_double(tt - LIGHT_TIME_OF_MOON - J2000), vector)
        return self.longitude(VECTOR(*vector[:3]), tt)


def solve(error, rate, guess):
    """The time at which the angle error(time) is none."""
    while True:
        step = math.remainder(error(guess), math.tau) / rate
        guess -= step
        if abs(step) < 0.01 / DAY:
            return guess


def civil_seconds(erfa, tt):
    """Seconds of Beijing's civil time since 1970-01-01."""
    year = 2000 + (tt - J2000) / 365.25
    if year < 1972:
        _, middle, coefficients = next(row for row in TT_LESS_UT if year < row[0])
        difference = sum(c * (year - middle) ** power for power, c in enumerate(coefficients))
    elif year < LAST_LEAP_SECONDS:
        date = datetime.date(2000, 1, 1) + datetime.timedelta(days=math.floor(tt - J2000 + 0.5))
        seconds = ctypes.c_double()
        erfa.eraDat(date.year, date.month, date.day, ctypes.c_double(0), ctypes.byref(seconds))
        difference = 32.184 + seconds.value
    else:
        ahead = year - LAST_LEAP_SECONDS
        difference = 69.2 + 0.1 * ahead + 0.00325 * ahead**2
    universal = (tt - ZERO_JD) * DAY - difference
    standard = universal + STANDARD_OFFSET
    return standard if standard >= STANDARD_TIME * DAY else universal + LOCAL_OFFSET


def solar_terms(erfa, sky):
    """By year the seconds of its 24 terms, from the lesser cold (285 degrees) on."""
    terms = {}
    for year in range(FIRST_YEAR - 1, LAST_YEAR + 2):
        start = J2000 + (datetime.date(year, 1, 5) - datetime.date(2000, 1, 1)).days
        terms[year] = []
        for number in range(24):
            wanted = math.radians(285 + 15 * number)
            guess = start + number * 365.2422 / 24
            moment = solve(lambda tt, wanted=wanted: sky.sun(tt) - wanted, math.tau / 365.2422, guess)
            terms[year].append(civil_seconds(erfa, moment))
    return terms


def new_moons(erfa, sky):
    start = J2000 + 5.6 - 29.530588 * 12.3685 * (2000 - FIRST_YEAR + 2)
    count = round((LAST_YEAR - FIRST_YEAR + 4) * 12.3685)
    moons = []
    for number in range(count):
        moment = solve(lambda tt: sky.moon(tt) - sky.sun(tt), math.tau / 29.530588, start + number * 29.530588)
        moons.append(civil_seconds(erfa, moment))
    return moons


def day_of(seconds):
    return math.floor(seconds / DAY)


def date_of(day):
    return ZERO + datetime.timedelta(days=day)


def month_starts(moons):
    days = [day_of(moon) for moon in moons]
    return [(HISTORICAL_MONTHS.get(date_of(day), date_of(day)) - ZERO).days for day in days]


def number_months(starts, terms):
    """The months as (start, year, number, leap); numbers as the year's own, which begins with month 1."""
    majors = sorted(day_of(moment) for year in terms.values() for moment in year[1::2])
    solstices = {year: day_of(moments[23]) for year, moments in terms.items()}

    def month_with(day):
        return max(index for index, start in enumerate(starts) if start <= day)

    months = []
    for year in range(FIRST_YEAR - 1, LAST_YEAR + 1):
        first, last = month_with(solstices[year]), month_with(solstices[year + 1])
        leap_is_due = last - first == 13
        number, lunar_year = 11, year
        for index in range(first, last):
            has_major = any(starts[index] <= day < starts[index + 1] for day in majors)
            leap = leap_is_due and not has_major
            if leap:
                leap_is_due = False
                number, lunar_year = months[-1][2], months[-1][1]
            months.append((starts[index], lunar_year, number, leap))
            number += 1
            if number == 13:
                number, lunar_year = 1, year + 1
        assert not leap_is_due
    last = month_with(solstices[LAST_YEAR + 1])
    # The last year of the table ends with its twelfth month, which lies behind the last solstice but one.
    months.append((starts[last], LAST_YEAR + 1, 11, False))
    return months


def year_rows(months):
    """A row a lunar year: first day, leap month or 0, a bit a month that has thirty days."""
    for year in range(FIRST_YEAR, LAST_YEAR + 1):
        own = [index for index, month in enumerate(months) if month[1] == year]
        assert len(own) in (12, 13), year
        leap = next((months[index][2] for index in own if months[index][3]), 0)
        lengths = [months[index + 1][0] - months[index][0] for index in own]
        assert set(lengths) <= {29, 30}, (year, lengths)
        bits = sum(1 << place for place, length in enumerate(lengths) if length == 30)
        yield f"    {{{months[own[0]][0]}, {leap}, 0x{bits:04x}}},  // {year}"


def term_rows(terms):
    """A row a year: the minutes since its beginning in which the terms fall."""
    for year in range(FIRST_YEAR, LAST_YEAR + 1):
        start = (datetime.date(year, 1, 1) - ZERO).days * DAY
        minutes = [math.floor((moment - start) / 60) for moment in terms[year]]
        assert all(0 <= minute < 366 * 1440 for minute in minutes)
        yield f"    {{{', '.join(map(str, minutes))}}},  // {year}"


def doubtful_days(moments):
    """The days on which something falls that may as well fall on the other side of midnight: day, and the other day."""
    for moment in sorted(moments):
        day, after = day_of(moment), moment % DAY
        if date_of(day).year < LAST_LEAP_SECONDS or date_of(day).year > LAST_YEAR:
            continue
        if min(after, DAY - after) <= DOUBTFUL_SECONDS:
            other = day - 1 if after < DAY / 2 else day + 1
            time = datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=math.floor(moment))
            yield f"    {{{day}, {other}}},  // {time}"


def table(erfa):
    sky = Sky(erfa)
    terms, moons = solar_terms(erfa, sky), new_moons(erfa, sky)
    years = list(year_rows(number_months(month_starts(moons), terms)))
    all_terms = [moment for year in terms.values() for moment in year]
    lists = (
        ("LunarYearRow", "kLunarYears", years),
        ("TermRow", "kTerms", list(term_rows(terms))),
        ("DoubtfulDay", "kDoubtfulMonths", list(doubtful_days(moons))),
        ("DoubtfulDay", "kDoubtfulTerms", list(doubtful_days(all_terms))),
    )
    arrays = "\n\n".join(
        f"constexpr std::array<{kind}, {len(rows)}> {name} = {{{{\n" + "\n".join(rows) + "\n}};" for kind, name, rows in lists
    )
    functions = "\n\n".join(
        f"std::span<const {kind}> {name[1:]}() noexcept {{\n  return {name};\n}}" for kind, name, rows in lists
    )
    return f"""\
// Generated by tools/make_calendar_table.py; do not edit.
#include "calendar/CalendarTable.h"

#include <array>

namespace scrivanta {{

namespace {{

// clang-format off
{arrays}
// clang-format on

}}  // namespace

{functions}

}}  // namespace scrivanta
"""


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    erfa = load_library()
    if erfa is None:
        print("liberfa is not installed: the table of the calendar was not made again", file=sys.stderr)
        return 77
    text = table(erfa)
    if not arguments.check:
        sys.stdout.write(text)
        return 0
    if TABLE.read_text(encoding="utf-8") != text:
        print(f"{TABLE.name} is not what {pathlib.Path(__file__).name} makes", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
