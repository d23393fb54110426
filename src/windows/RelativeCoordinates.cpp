#include "windows/RelativeCoordinates.h"

#include <algorithm>
#include <array>
#include <memory>

#include "regexp/RegExp.h"
#include "text/DecimalText.h"
#include "text/UpperCase.h"
#include "windows/ScriptLine.h"

namespace scrivanta {

namespace {

struct Edit {
  LinePart part;
  std::u16string text;
};

struct PointPlace {
  LinePart x;
  LinePart y;
  ScreenPoint point;
};

ScreenPoint Difference(ScreenPoint point, ScreenPoint origin) {
  return {point.x - origin.x, point.y - origin.y};
}

std::u16string Sum(std::u16string_view base, long long number) {
  return std::u16string(base) + (number < 0 ? u" - " : u" + ") + DecimalText(number < 0 ? -number : number);
}

// Words of a command that are no numbers: which button, how, from where.
bool IsKnownWord(std::u16string_view word) {
  static constexpr std::u16string_view kWords[] = {
      u"LEFT", u"L", u"RIGHT",   u"R",  u"MIDDLE",    u"M",  u"X1",        u"X2", u"DOWN",       u"D",
      u"UP",   u"U", u"WHEELUP", u"WU", u"WHEELDOWN", u"WD", u"WHEELLEFT", u"WL", u"WHEELRIGHT", u"WR"};
  return std::find(std::begin(kWords), std::end(kWords), UpperCase(word)) != std::end(kWords);
}

bool IsRelativeWord(std::u16string_view word) {
  const std::u16string upper = UpperCase(word);
  return upper == u"REL" || upper == u"RELATIVE";
}

class CoordinateWork {
 public:
  explicit CoordinateWork(const CoordinateOptions& options) : options_(options), lines_(options.dialect) {
    if (const auto* const point = std::get_if<ScreenPoint>(&options.origin)) {
      origin_ = *point;
    } else if (const auto* const window = std::get_if<FromWindow>(&options.origin)) {
      origin_ = window->corner;
    }
    countsFromPrevious_ = std::holds_alternative<FromPreviousPoint>(options.origin);
    if (options.dialect == ScriptDialect::kPairs) {
      commas_ = BuiltInRegExpEngine().Compile(
          u"(^|[^\\w.+,，-])([+-]?\\d{1,9}(?:[ \\t]*[,，][ \\t]*[+-]?\\d{1,9})+)(?![\\w.]|[ \\t]*[,，])", {});
      blanks_ = BuiltInRegExpEngine().Compile(u"^([ \\t]*\\(?)([+-]?\\d{1,9}[ \\t]+[+-]?\\d{1,9})\\)?[ \\t]*$", {});
    }
  }

  std::u16string Convert(std::u16string_view line, std::uint64_t number) {
    edits_.clear();
    line_ = line;
    number_ = number;
    if (options_.dialect == ScriptDialect::kPairs) {
      ConvertPairs();
    } else {
      std::size_t end = 0;
      for (const CommandInLine& command : lines_.Next(line)) {
        if (command.name.start < end) {
          LeaveNested(command);
        } else {
          ConvertCommand(command);
          end = command.end;
        }
      }
    }
    std::u16string converted(line);
    for (auto edit = edits_.rbegin(); edit != edits_.rend(); ++edit) {
      converted.replace(edit->part.start, edit->part.length, edit->text);
    }
    return converted;
  }

  CoordinateReport Take() { return std::move(report_); }

 private:
  void ConvertPairs() {
    const auto take = [this](const RegExpMatch& match) {
      ConvertRun(match.start + match.groups[0]->size(), *match.groups[1]);
      return true;
    };
    NoProgress progress;
    commas_->Scan(line_, 0, take, progress);
    blanks_->Scan(line_, 0, take, progress);
  }

  // Numbers with something between them; the last of an odd count belongs to nobody, so none of them is touched.
  void ConvertRun(std::size_t start, std::u16string_view run) {
    constexpr std::u16string_view kOfNumbers = u"+-0123456789";
    std::vector<LinePart> numbers;
    for (std::size_t at = 0; at < run.size();) {
      const std::size_t end = std::min(run.find_first_not_of(kOfNumbers, at), run.size());
      numbers.push_back({start + at, end - at});
      at = std::min(run.find_first_of(kOfNumbers, end), run.size());
    }
    if (numbers.size() % 2 != 0) {
      Leave({start, run.size()});
      return;
    }
    for (std::size_t index = 0; index < numbers.size(); index += 2) {
      const PointPlace place = *PlaceOf(numbers[index], numbers[index + 1]);
      if (!countsFromPrevious_) {
        Replace(place, Difference(place.point, Origin(place.point)));
      } else if (previous_) {
        Replace(place, Difference(place.point, *previous_));
      }
      previous_ = place.point;
    }
  }

  void ConvertCommand(const CommandInLine& found) {
    const CoordinateCommand& command = *found.command;
    const LinePart whole{found.name.start, found.end - found.name.start};
    if (command.isArea) {
      Leave(whole);
      return;
    }
    bool isUnderstood = true;
    const std::vector<PointPlace> places =
        command.isWordy ? PlacesAmongWords(found, isUnderstood) : PlacesOf(found, isUnderstood);
    if (!isUnderstood) {
      Leave(whole);
      Moved(command, std::nullopt);
    } else if (places.empty()) {
      return;
    } else if (IsRelativeAlready(found)) {
      const ScreenPoint by = places.back().point;
      Moved(command, previous_ ? std::optional(ScreenPoint{previous_->x + by.x, previous_->y + by.y}) : std::nullopt);
    } else {
      if (countsFromPrevious_) {
        CountFromPrevious(found, places, whole);
      } else {
        CountFromOrigin(places);
      }
      Moved(command, places.back().point);
    }
  }

  // A command among the arguments of another: it is carried out before it, and may be more than once.
  void LeaveNested(const CommandInLine& found) {
    Leave({found.name.start, found.end - found.name.start});
    Moved(*found.command, std::nullopt);
  }

  void CountFromOrigin(const std::vector<PointPlace>& places) {
    const bool isQWindow = options_.dialect == ScriptDialect::kQ && std::holds_alternative<FromWindow>(options_.origin);
    for (const PointPlace& place : places) {
      const ScreenPoint point = Difference(place.point, Origin(place.point));
      if (isQWindow) {
        Replace(place, Sum(u"ChuangKouX", point.x), Sum(u"ChuangKouY", point.y));
      } else {
        Replace(place, point);
      }
    }
  }

  void CountFromPrevious(const CommandInLine& found, const std::vector<PointPlace>& places, LinePart whole) {
    const CoordinateCommand& command = *found.command;
    const bool isFirst = !hasMoved_ && command.isMove;
    if (isFirst) {
      return;  // where the script begins
    }
    if (!previous_ || command.fromPointer == FromPointer::kNever) {
      Leave(whole);
      return;
    }
    if (command.fromPointer == FromPointer::kByName) {
      edits_.push_back({found.name, u"MoveR"});
    }
    ScreenPoint from = *previous_;
    for (const PointPlace& place : places) {
      const ScreenPoint by = Difference(place.point, from);
      if (command.fromPointer == FromPointer::kByQuery) {
        Replace(place, Sum(u"MouseGetPos(0)", by.x), Sum(u"MouseGetPos(1)", by.y));
      } else {
        Replace(place, by);
        from = place.point;  // the second point of a drag counts from its first
      }
    }
    AddRelativeOption(found);
  }

  void AddRelativeOption(const CommandInLine& found) {
    const bool isQuoted = options_.dialect == ScriptDialect::kAhk2;
    const CoordinateCommand& command = *found.command;
    if (command.fromPointer == FromPointer::kByOption) {
      const std::u16string option = isQuoted ? u"\"R\"" : u"R";
      const auto place = static_cast<std::size_t>(command.option);
      if (found.arguments.size() > place) {
        edits_.push_back({found.arguments[place], option});
        return;
      }
      std::u16string text;
      for (std::size_t index = found.arguments.size(); index <= place; ++index) {
        text += u", ";
      }
      edits_.push_back({{found.end, 0}, text + option});
    } else if (command.fromPointer == FromPointer::kByWord) {
      const bool endsInText = line_[found.end - 1] == u'"';
      const std::size_t at = found.end - (endsInText ? 1 : 0);
      edits_.push_back({{at, 0}, endsInText ? u" Rel" : (isQuoted ? u", \"Rel\"" : u", Rel")});
    }
  }

  std::vector<PointPlace> PlacesOf(const CommandInLine& found, bool& isUnderstood) const {
    std::vector<PointPlace> places;
    for (const int index : found.command->points) {
      const auto x = static_cast<std::size_t>(index);
      if (index < 0 || x + 1 >= found.arguments.size()) {
        continue;
      }
      const auto place = PlaceOf(found.arguments[x], found.arguments[x + 1]);
      const bool isEmpty = found.arguments[x].length == 0 && found.arguments[x + 1].length == 0;
      isUnderstood = isUnderstood && (place || isEmpty);
      if (place) {
        places.push_back(*place);
      }
    }
    return places;
  }

  std::vector<PointPlace> PlacesAmongWords(const CommandInLine& found, bool& isUnderstood) const {
    std::vector<LinePart> numbers;
    for (const LinePart& word : found.arguments) {
      if (LiteralNumber(word.In(line_))) {
        numbers.push_back(word);
      } else {
        isUnderstood = isUnderstood && (IsKnownWord(word.In(line_)) || IsRelativeWord(word.In(line_)));
      }
    }
    return isUnderstood && numbers.size() >= 2 ? std::vector{*PlaceOf(numbers[0], numbers[1])}
                                               : std::vector<PointPlace>();
  }

  std::optional<PointPlace> PlaceOf(LinePart x, LinePart y) const {
    const auto numberX = LiteralNumber(x.In(line_));
    const auto numberY = LiteralNumber(y.In(line_));
    return numberX && numberY ? std::optional(PointPlace{x, y, {*numberX, *numberY}}) : std::nullopt;
  }

  bool IsRelativeAlready(const CommandInLine& found) const {
    const auto& arguments = found.arguments;
    if (found.command->isWordy) {
      return std::any_of(arguments.begin(), arguments.end(),
                         [this](const LinePart& word) { return IsRelativeWord(word.In(line_)); });
    }
    const auto place = static_cast<std::size_t>(std::max(found.command->option, 0));
    if (found.command->option < 0 || place >= arguments.size()) {
      return false;
    }
    const std::u16string option = UpperCase(arguments[place].In(line_));
    return option == u"R" || option == u"\"R\"";
  }

  ScreenPoint Origin(ScreenPoint point) {
    if (!origin_) {
      origin_ = point;
    }
    return *origin_;
  }

  void Moved(const CoordinateCommand& command, std::optional<ScreenPoint> to) {
    if (command.isMove) {
      previous_ = to;
      hasMoved_ = true;
    }
  }

  void Replace(const PointPlace& place, ScreenPoint point) {
    Replace(place, DecimalText(point.x), DecimalText(point.y));
  }

  void Replace(const PointPlace& place, std::u16string x, std::u16string y) {
    edits_.push_back({place.x, std::move(x)});
    edits_.push_back({place.y, std::move(y)});
    ++report_.points;
  }

  void Leave(LinePart part) { report_.left.push_back({number_, std::u16string(part.In(line_))}); }

  const CoordinateOptions& options_;
  ScriptLines lines_;
  std::unique_ptr<RegExp> commas_;
  std::unique_ptr<RegExp> blanks_;
  std::optional<ScreenPoint> origin_;
  std::optional<ScreenPoint> previous_;  // where the mouse is, as far as it is known
  bool hasMoved_ = false;
  bool countsFromPrevious_ = false;
  std::u16string_view line_;
  std::uint64_t number_ = 0;
  std::vector<Edit> edits_;
  CoordinateReport report_;
};

void WritePrologue(LineWriter& out, const CoordinateOptions& options) {
  if (const auto* const window = std::get_if<FromWindow>(&options.origin)) {
    out.WriteRaw(Encode(options.encoding, WindowPrologue(options.dialect, window->caption)));
  }
}

// A script in sections begins behind the heading of the one that holds its commands.
bool IsScriptHeading(ScriptDialect dialect, std::u16string_view line) {
  return dialect == ScriptDialect::kQ && UpperCase(line).starts_with(u"[SCRIPT]");
}

}  // namespace

ScriptDialect DialectOf(LineReader& lines, Encoding encoding) {
  std::array<std::uint64_t, kDialectNames.size()> counts{};
  ScriptLines asQ(ScriptDialect::kQ);
  ScriptLines asAhk(ScriptDialect::kAhk2);
  bool requiresVersion = false;
  while (lines.Next()) {
    const std::u16string line = Decode(encoding, lines.line());
    requiresVersion = requiresVersion || UpperCase(line).starts_with(u"#REQUIRES");
    counts[static_cast<std::size_t>(ScriptDialect::kQ)] += asQ.Next(line).size();
    for (const CommandInLine& command : asAhk.Next(line)) {
      const char16_t behind = command.name.end() < line.size() ? line[command.name.end()] : u' ';
      const ScriptDialect dialect = behind == u'('   ? ScriptDialect::kAutoIt
                                    : behind == u',' ? ScriptDialect::kAhk1
                                                     : ScriptDialect::kAhk2;
      ++counts[static_cast<std::size_t>(dialect)];
    }
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  const auto dialect = *most == 0 ? ScriptDialect::kPairs : static_cast<ScriptDialect>(most - counts.begin());
  return requiresVersion && dialect == ScriptDialect::kAutoIt ? ScriptDialect::kAhk2 : dialect;
}

CoordinateReport MakeCoordinatesRelative(LineReader& in, LineWriter& out, const CoordinateOptions& options) {
  // The prologue must stand before the first command: behind the heading of the script, or at the beginning where
  // there is none, which is known only at the end.
  CoordinateWork work(options);
  StringSink beforeHeading;
  LineWriter before(beforeHeading);
  const bool waits = options.dialect == ScriptDialect::kQ && std::holds_alternative<FromWindow>(options.origin);
  bool isWritten = !waits;
  if (isWritten) {
    WritePrologue(out, options);
  }
  while (in.Next()) {
    const std::u16string line = Decode(options.encoding, in.line());
    LineWriter& target = isWritten ? out : before;
    target.WriteLine(Encode(options.encoding, work.Convert(line, in.number())));
    if (!isWritten && IsScriptHeading(options.dialect, line)) {
      before.Flush();
      out.WriteRaw(beforeHeading.bytes());
      WritePrologue(out, options);
      isWritten = true;
    }
  }
  if (!isWritten) {
    before.Flush();
    WritePrologue(out, options);
    out.WriteRaw(beforeHeading.bytes());
  }
  return work.Take();
}

}  // namespace scrivanta
