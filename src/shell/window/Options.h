// The options of the program, and the command that asks for them.
#pragma once

#include <filesystem>
#include <optional>

#include "shell/window/ColourChoice.h"
#include "shell/window/KeyMap.h"
#include "shell/window/MainWindow.h"
#include "shell/workbench/CommandTable.h"
#include "shell/workbench/Workbench.h"
#include "text/Interface.h"

namespace scrivanta {

struct Options {
  bool wraps = false;                 // lines are wrapped at the width of the window
  bool allEnglish = true;             // kept for old settings: going to a line is right whatever the text holds
  bool usesRegExpObject = false;      // patterns are searched by the platform's object, not by the built-in engine
  std::filesystem::path defaultFile;  // opened when the program starts without a document
  ColourChoice colours = ColourChoice::kLikeSystem;
  KeyMap keys = {};  // left empty by ReadOptions, which others ask often

  friend bool operator==(const Options&, const Options&) = default;
};

Options ReadOptions(const Settings& settings);
void SaveOptions(const Options& options, Settings& settings);

// The dialog, as the command sees it.
class OptionsDialog : public Interface {
 public:
  // Nothing when the user has left them alone. The dialog tells where the ini file is.
  virtual std::optional<Options> Ask(Workbench& workbench, const Options& options) = 0;
};

// The dialog outlives the table.
void RegisterOptionsCommand(CommandTable& table, MainWindow& window, OptionsDialog& dialog);

}  // namespace scrivanta
