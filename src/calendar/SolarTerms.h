// The 24 solar terms.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "calendar/Day.h"

namespace scrivanta {

// By its place in the Gregorian year.
enum class Term {
  kXiaoHan,
  kDaHan,
  kLiChun,
  kYuShui,
  kJingZhe,
  kChunFen,
  kQingMing,
  kGuYu,
  kLiXia,
  kXiaoMan,
  kMangZhong,
  kXiaZhi,
  kXiaoShu,
  kDaShu,
  kLiQiu,
  kChuShu,
  kBaiLu,
  kQiuFen,
  kHanLu,
  kShuangJiang,
  kLiDong,
  kXiaoXue,
  kDaXue,
  kDongZhi,
};
inline constexpr int kTermCount = 24;

struct TermMoment {
  Day day = {};
  int minute = 0;  // of the day, in which the term falls; not rounded
};

// Of the years 1899 to 2100.
TermMoment MomentOf(int year, Term term);
std::optional<Term> TermOn(Day day);
// The last one of those that begin a month of the sixty cycle (立春, 惊蛰 and so on) on the day or before, from 0 for
// 小寒 to 11 for 大雪.
int MonthTermOf(Day day);

// "冬至"
std::u16string_view TermName(Term term);
// "21:45"
std::u16string TimeOf(const TermMoment& moment);

// Whether official word may give this day a term, or take the one it has: see DoubtfulTerms.
bool HasDoubtfulTerm(Day day);

}  // namespace scrivanta
