// The families of scripts that move the mouse: which of their commands hold co-ordinates, and where.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace scrivanta {

enum class ScriptDialect {
  kAutoIt,  // MouseClick("left", x, y)
  kAhk1,    // Click, x, y
  kAhk2,    // Click x, y
  kQ,       // MoveTo x, y
  kPairs,   // x,y and nothing else
};
inline constexpr std::array<std::string_view, 5> kDialectNames = {"autoit", "ahk1", "ahk2", "q", "pairs"};

// How a command is made to count from where the mouse is.
enum class FromPointer {
  kNever,     // it cannot
  kByName,    // by another command: MoveR
  kByOption,  // by an argument: R
  kByWord,    // by a word among its arguments: Rel
  kByQuery,   // by an expression: MouseGetPos(0) + x
};

struct CoordinateCommand {
  std::string_view name;      // letter case does not count
  std::array<int, 2> points;  // the numbers of the arguments that are an x, from 0; -1: none
  FromPointer fromPointer;
  int option = -1;       // the number of the argument that is R
  bool isMove = true;    // the mouse is at its last point afterwards
  bool isArea = false;   // its numbers are the edges of an area, which is left alone
  bool isWordy = false;  // x and y are the first two numbers among words in any order: Click Right 10 20
};

std::span<const CoordinateCommand> CommandsOf(ScriptDialect dialect);
// Null for a name that is none of them.
const CoordinateCommand* FindCommand(ScriptDialect dialect, std::u16string_view name);

// The lines that make the script count from the client area of the window with that caption, as text with CR LF.
std::u16string WindowPrologue(ScriptDialect dialect, std::u16string_view caption);

}  // namespace scrivanta
