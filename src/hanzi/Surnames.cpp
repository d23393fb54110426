#include <array>

#include "hanzi/SurnameTable.h"

namespace scrivanta {

namespace {

// Where families differ by region, the reading that more of them have.
constexpr std::array kSurnames = {
    PhraseRow{u"万俟", u"mò qí"},   PhraseRow{u"尉迟", u"yù chí"},    PhraseRow{u"澹台", u"tán tái"},
    PhraseRow{u"子车", u"zǐ jū"},   PhraseRow{u"乐正", u"yuè zhèng"}, PhraseRow{u"句龙", u"gōu lóng"},
    PhraseRow{u"令狐", u"líng hú"}, PhraseRow{u"宰父", u"zǎi fǔ"},    PhraseRow{u"单于", u"chán yú"},
    PhraseRow{u"乐", u"yuè"},       PhraseRow{u"解", u"xiè"},         PhraseRow{u"单", u"shàn"},
    PhraseRow{u"隗", u"wěi"},       PhraseRow{u"仇", u"qiú"},         PhraseRow{u"翟", u"zhái"},
    PhraseRow{u"阚", u"kàn"},       PhraseRow{u"曾", u"zēng"},        PhraseRow{u"乜", u"niè"},
    PhraseRow{u"查", u"zhā"},       PhraseRow{u"区", u"ōu"},          PhraseRow{u"覃", u"qín"},
    PhraseRow{u"繁", u"pó"},        PhraseRow{u"句", u"gōu"},         PhraseRow{u"折", u"shé"},
    PhraseRow{u"召", u"shào"},      PhraseRow{u"种", u"chóng"},       PhraseRow{u"朴", u"piáo"},
    PhraseRow{u"盖", u"gě"},        PhraseRow{u"秘", u"bì"},          PhraseRow{u"员", u"yùn"},
    PhraseRow{u"黑", u"hè"},        PhraseRow{u"缪", u"miào"},        PhraseRow{u"任", u"rén"},
    PhraseRow{u"华", u"huà"},       PhraseRow{u"葛", u"gě"},          PhraseRow{u"祭", u"zhài"},
    PhraseRow{u"洗", u"xiǎn"},      PhraseRow{u"便", u"pián"},        PhraseRow{u"过", u"guō"},
    PhraseRow{u"尉遲", u"yù chí"},  PhraseRow{u"單", u"shàn"},        PhraseRow{u"區", u"ōu"},
    PhraseRow{u"蓋", u"gě"},        PhraseRow{u"樂", u"yuè"},
};

}  // namespace

std::span<const PhraseRow> Surnames() noexcept {
  return kSurnames;
}

}  // namespace scrivanta
