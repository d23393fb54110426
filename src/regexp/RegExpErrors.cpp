#include "regexp/RegExpErrors.h"

#include <algorithm>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

struct Explanation {
  const char* english;
  const char16_t* chinese;
};

Explanation ExplanationOf(RegExpFault fault) {
  switch (fault) {
    case RegExpFault::kNothingToRepeat:
      return {"there is nothing before this sign that it could repeat", u"这个重复符号前面没有可以重复的内容"};
    case RegExpFault::kUnclosedGroup:
      return {"this ( has no ) that closes it", u"这个左括号“(”没有与之配对的“)”"};
    case RegExpFault::kUnopenedGroup:
      return {"this ) closes nothing; write \\) for the character itself",
              u"这个右括号“)”没有与之配对的“(”；要查找括号本身请写“\\)”"};
    case RegExpFault::kUnclosedClass:
      return {"this [ has no ] that closes it", u"这个左方括号“[”没有与之配对的“]”"};
    case RegExpFault::kReversedRange:
      return {"the range runs backwards", u"字符范围的起点大于终点"};
    case RegExpFault::kReversedCount:
      return {"the most repetitions are fewer than the least", u"重复次数的上限小于下限"};
    case RegExpFault::kCountTooLarge:
      return {"a count of repetitions is at most 65535", u"重复次数最多为65535"};
    case RegExpFault::kBackslashAtEnd:
      return {"a \\ at the end stands for nothing; write \\\\ for the character itself",
              u"末尾的“\\”后面缺少字符；要查找反斜杠本身请写“\\\\”"};
    case RegExpFault::kUnknownGroup:
      return {"after (? there may only stand : = or !",
              u"“(?”之后只能是“:”、“=”或“!”（不支持向后查看、命名分组等写法）"};
    case RegExpFault::kNestedTooDeep:
      return {"the groups are nested too deeply", u"括号嵌套的层数太多"};
    case RegExpFault::kTooLarge:
      return {"the pattern is too large", u"表达式太长，或者展开后太大"};
  }
  return {"", u""};
}

}  // namespace

RegExpSyntaxError::RegExpSyntaxError(RegExpFault fault, std::size_t position)
    : ExplainedError(
          "the pattern cannot be used: character " + std::to_string(position + 1) + ": " + ExplanationOf(fault).english,
          u"正则表达式有误：第" + DecimalText(position + 1) + u"个字符：" + ExplanationOf(fault).chinese + u"。"),
      fault_(fault),
      position_(position) {}

RegExpTooComplex::RegExpTooComplex(std::size_t position)
    : ExplainedError("the pattern is too complex for this text: the search was given up at character " +
                         std::to_string(position + 1),
                     u"正则表达式过于复杂：在正文第" + DecimalText(position + 1) +
                         u"个字符处放弃了查找。请简化表达式，例如去掉套在一起的重复。"),
      position_(position) {}

}  // namespace scrivanta
