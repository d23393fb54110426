// All that a command may touch. FrmMain provides it on real controls, tests provide a scripted one.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "regexp/RegExp.h"
#include "shell/workbench/Document.h"
#include "shell/workbench/Editor.h"
#include "shell/workbench/Prompts.h"
#include "shell/workbench/Settings.h"
#include "text/Interface.h"
#include "text/Progress.h"

namespace scrivanta {

// Fixed at start-up.
struct Folders {
  std::filesystem::path program;
  std::filesystem::path temporary;
  std::filesystem::path iniFile;
  // For the snapshots of changed documents; made when it is needed. All instances of the user share it.
  std::filesystem::path recovery = {};
  // Of the floating notes; the same holds for it.
  std::filesystem::path notes = {};
};

class Clock : public Interface {
 public:
  virtual std::chrono::local_time<std::chrono::milliseconds> Now() const = 0;
};

// What the desktop does for the program.
class Desktop : public Interface {
 public:
  // Opens a document with its own program. Throws FileError.
  virtual void OpenWithDefaultProgram(const std::filesystem::path& document) = 0;
  // Runs a program, named by its whole path, with arguments and does not wait for it. Throws FileError.
  virtual void Run(const std::u16string& program, const std::u16string& arguments) = 0;
  // The same with a program of the system, named by its file ("CALC.EXE"): whatever has that name elsewhere is not it.
  virtual void RunSystemProgram(const std::u16string& fileName, const std::u16string& arguments) = 0;
};

// While one lives the window is busy: hourglass, menu, edit box and dialogs disabled, the first status panel shows how
// far the work has come and has its old text back at the end; after a second the interrupt window is there.
class BusyWork : public Interface {
 public:
  virtual Progress& progress() = 0;
};

class Workbench : public Interface {
 public:
  virtual Editor& editor() = 0;
  virtual Document& document() = 0;
  virtual Prompts& prompts() = 0;
  virtual Settings& settings() = 0;
  virtual Desktop& desktop() = 0;
  virtual const Clock& clock() const = 0;
  virtual const Folders& folders() const = 0;
  // What finds and replaces patterns, as the user has chosen.
  virtual const RegExpEngine& regExpEngine() const { return BuiltInRegExpEngine(); }
  virtual std::unique_ptr<BusyWork> StartWork() = 0;
  // The text of the first status panel, beside the document path: a count, a remark. The next change of state ends it.
  virtual void ShowStatus(const std::u16string& text) = 0;
};

}  // namespace scrivanta
