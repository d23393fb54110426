// Works with the program at random, as somebody would in a long day: edits, formats, commands, undoing, dialogs
// answered and cancelled. After each step the document is compared with a plain model, a string on which the same
// commands run without a window, and the formats of what has stayed with those before; undoing must bring back both, as
// they were. A message box that nobody expects ends it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "shell/workbench/CommandTable.h"
#include "support/ScriptedWorkbench.h"
#include "window/driver/App.h"
#include "window/driver/TestFiles.h"
#include "window/soak/TextStates.h"

namespace scrivanta {

// What the process holds.
struct SoakFigures {
  std::size_t handles = 0;
  std::size_t windows = 0;
  std::size_t roomForGdiObjects = 0;  // how many more of them it may have
  std::size_t megabytes = 0;          // committed

  std::string Text() const;
};
SoakFigures MeasureProcess();

class Soak {
 public:
  // The program is running; the folder takes the document.
  Soak(App& app, const TestFolder& folder, std::uint64_t seed);
  Soak(const Soak&) = delete;
  Soak& operator=(const Soak&) = delete;
  ~Soak();

  // Throws DriverFailure, with seed and step, at the first difference.
  void Run(std::size_t steps);

 private:
  using Answers = std::vector<std::variant<Answer, std::u16string>>;
  class Dialogs;
  struct Kind {
    const char* name;
    int weight;
    void (Soak::*run)();
  };
  static const std::vector<Kind>& Kinds();

  void InsertText();
  void TypeText();
  void Delete();
  void CutCopyPaste();
  void Capitals();
  void Format();
  void UndoUnseen();
  void RunLineCommand();
  void RunSearchCommand();
  void DeleteLines();
  void Sort();
  void Shuffle();
  void Encrypt();
  void Undo();
  void Redo();
  void SaveAndOpen();
  void CancelDialogs();
  void Minimise();
  void StartAgain();

  std::size_t Random(std::size_t below) { return static_cast<std::size_t>(random_() % below); }
  template <typename Items>
  const auto& OneOf(const Items& items) {
    return items[Random(items.size())];
  }
  // The text and its formats, as undoing has to bring them back.
  std::u16string Present() const;
  void NotePresent(bool typed);
  std::u16string RandomText(std::size_t longest);
  std::size_t RandomPosition();
  void Select(TextRange range);
  void SelectRandomly();
  std::u16string Selected() const { return text_.substr(selection_.start.value, selection_.length); }

  void RunOnModel(std::string_view command, const Answers& answers = {});
  // The command on the model; then the same in the window, its questions answered alike.
  void RunOnBoth(std::string_view command, const Answers& answers);
  void ExpectModel(const Answers& answers = {});
  // What stands there now is this.
  void Expect(const std::u16string& text, bool typed = false);
  void ExpectReplaced(const std::u16string& replacement, bool typed = false);
  // Units of the text before keep their formats in the present one.
  void ExpectSameEffects(std::size_t before, std::size_t now, std::size_t length) const;
  // Lines that occur once before and once now do.
  void ExpectLinesKeepEffects(const std::u16string& before) const;

  App& app_;
  std::filesystem::path document_;
  std::mt19937_64 random_;
  std::uint64_t seed_;
  testing::ScriptedWorkbench model_;
  CommandTable commands_;
  std::unique_ptr<Dialogs> dialogs_;
  TextStates states_;
  std::u16string text_;
  std::string effects_;        // of its units
  std::string effectsBefore_;  // before the last step
  TextRange selection_;
  std::optional<std::u16string> clipboard_;
  std::string steps_;  // their names so far
};

}  // namespace scrivanta
