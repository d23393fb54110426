#include "windows/ScriptDialect.h"

#include <algorithm>

#include "text/UpperCase.h"

namespace scrivanta {

namespace {

constexpr std::array<int, 2> kFirst = {0, -1};
constexpr std::array<int, 2> kSecond = {1, -1};
constexpr std::array<int, 2> kDrag = {1, 3};
constexpr std::array<int, 2> kNoPoint = {-1, -1};

constexpr CoordinateCommand Area(std::string_view name) {
  return {.name = name, .points = kNoPoint, .fromPointer = FromPointer::kNever, .isMove = false, .isArea = true};
}

constexpr CoordinateCommand kAutoIt[] = {
    {.name = "MouseMove", .points = kFirst, .fromPointer = FromPointer::kByQuery},
    {.name = "MouseClick", .points = kSecond, .fromPointer = FromPointer::kByQuery},
    {.name = "MouseClickDrag", .points = kDrag, .fromPointer = FromPointer::kByQuery},
    {.name = "PixelGetColor", .points = kFirst, .fromPointer = FromPointer::kByQuery, .isMove = false},
    Area("PixelSearch"),
    Area("PixelChecksum"),
};

// R stands in the fourth place of MouseMove and in the seventh of the others.
constexpr CoordinateCommand kAhk[] = {
    {.name = "Click", .points = kNoPoint, .fromPointer = FromPointer::kByWord, .isWordy = true},
    {.name = "MouseMove", .points = kFirst, .fromPointer = FromPointer::kByOption, .option = 3},
    {.name = "MouseClick", .points = kSecond, .fromPointer = FromPointer::kByOption, .option = 6},
    {.name = "MouseClickDrag", .points = kDrag, .fromPointer = FromPointer::kByOption, .option = 6},
    Area("PixelSearch"),
    Area("ImageSearch"),
};
constexpr CoordinateCommand kPixelOfAhk1 = {
    .name = "PixelGetColor", .points = kSecond, .fromPointer = FromPointer::kNever, .isMove = false};
constexpr CoordinateCommand kPixelOfAhk2 = {
    .name = "PixelGetColor", .points = kFirst, .fromPointer = FromPointer::kNever, .isMove = false};

constexpr CoordinateCommand kQ[] = {
    {.name = "MoveTo", .points = kFirst, .fromPointer = FromPointer::kByName},
    {.name = "IfColor", .points = kFirst, .fromPointer = FromPointer::kNever, .isMove = false},
    {.name = "GetPixelColor", .points = kFirst, .fromPointer = FromPointer::kNever, .isMove = false},
    Area("FindPic"),
    Area("FindColor"),
    Area("FindColorEx"),
};

bool IsNamed(const CoordinateCommand& command, std::u16string_view name) {
  return UpperCase(std::u16string(command.name.begin(), command.name.end())) == UpperCase(name);
}

// In quotation marks, as the language writes one that stands in a text.
std::u16string Quoted(std::u16string_view text, std::u16string_view quoteInside) {
  std::u16string quoted = u"\"";
  for (const char16_t character : text) {
    if (character == u'"') {
      quoted += quoteInside;
    } else {
      quoted += character;
    }
  }
  return quoted + u"\"";
}

// The older language takes what is behind the comma as it stands, but for these.
std::u16string Literal(std::u16string_view text) {
  std::u16string literal;
  for (const char16_t character : text) {
    if (character == u'`' || character == u'%' || character == u',' || character == u';') {
      literal += u'`';
    }
    literal += character;
  }
  return literal;
}

}  // namespace

std::span<const CoordinateCommand> CommandsOf(ScriptDialect dialect) {
  switch (dialect) {
    case ScriptDialect::kAutoIt:
      return kAutoIt;
    case ScriptDialect::kAhk1:
    case ScriptDialect::kAhk2:
      return kAhk;
    case ScriptDialect::kQ:
      return kQ;
    case ScriptDialect::kPairs:
      break;
  }
  return {};
}

const CoordinateCommand* FindCommand(ScriptDialect dialect, std::u16string_view name) {
  const auto commands = CommandsOf(dialect);
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [name](const CoordinateCommand& command) { return IsNamed(command, name); });
  if (found != commands.end()) {
    return &*found;
  }
  if (dialect == ScriptDialect::kAhk1 && IsNamed(kPixelOfAhk1, name)) {
    return &kPixelOfAhk1;
  }
  return dialect == ScriptDialect::kAhk2 && IsNamed(kPixelOfAhk2, name) ? &kPixelOfAhk2 : nullptr;
}

std::u16string WindowPrologue(ScriptDialect dialect, std::u16string_view caption) {
  switch (dialect) {
    case ScriptDialect::kAutoIt: {
      const std::u16string title = Quoted(caption, u"\"\"");
      return u"WinActivate(" + title + u")\r\nWinWaitActive(" + title +
             u")\r\nOpt(\"MouseCoordMode\", 2)\r\nOpt(\"PixelCoordMode\", 2)\r\n";
    }
    case ScriptDialect::kAhk1: {
      const std::u16string title = Literal(caption);
      return u"WinActivate, " + title + u"\r\nWinWaitActive, " + title +
             u"\r\nCoordMode, Mouse, Client\r\nCoordMode, Pixel, Client\r\n";
    }
    case ScriptDialect::kAhk2: {
      const std::u16string title = Quoted(caption, u"`\"");
      return u"WinActivate " + title + u"\r\nWinWaitActive " + title +
             u"\r\nCoordMode \"Mouse\", \"Client\"\r\nCoordMode \"Pixel\", \"Client\"\r\n";
    }
    case ScriptDialect::kQ:
      return u"ChuangKou = Plugin.Window.Find(0, " + Quoted(caption, u"\"\"") +
             u")\r\nChuangKouQu = Split(Plugin.Window.GetClientRect(ChuangKou), \"|\")\r\n"
             u"ChuangKouX = CLng(ChuangKouQu(0))\r\nChuangKouY = CLng(ChuangKouQu(1))\r\n";
    case ScriptDialect::kPairs:
      break;
  }
  return {};
}

}  // namespace scrivanta
