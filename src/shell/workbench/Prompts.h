// The questions a command may ask. Their texts, buttons, defaults and icons are part of what the user knows, so tests
// read them back from a recorder.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "text/Interface.h"

namespace scrivanta {

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Answer { kOk, kCancel, kYes, kNo };
enum class Icon { kNone, kCritical, kQuestion, kWarning, kInformation };

struct Message {
  std::u16string text = {};
  std::u16string title = u"Scrivanta";
  Buttons buttons = Buttons::kOk;
  Icon icon = Icon::kNone;
  Answer defaultAnswer = Answer::kOk;  // the button that Enter presses; kOk with other buttons: the first one
  bool systemModal = false;            // above the windows of all programs
};

struct InputQuestion {
  std::u16string prompt = {};
  std::u16string title = u"Scrivanta";
  std::u16string preset = {};
  bool hidden = false;  // shows dots in place of what is typed
  // The preset is a line of fields: the box is as wide as they are, and the caret stands at their beginning.
  bool hasFields = false;
  // A third button, and what it makes of the text that is typed.
  std::u16string assistant = {};
  std::function<std::u16string(const std::u16string& typed)> assist = nullptr;
};

struct FileQuestion {
  std::u16string filter = u"*.txt";  // patterns separated by ";"
  std::filesystem::path initialFolder = {};
  std::u16string initialName = {};
};

struct FolderQuestion {
  std::u16string title = {};
  std::filesystem::path initialFolder = {};  // need not be there
};

class Prompts : public Interface {
 public:
  // Closing the box without a button answers kCancel where there is one, else kNo or kOk.
  virtual Answer Ask(const Message& message) = 0;
  // An empty answer when the box was cancelled: to the commands the two are the same.
  virtual std::u16string Input(const InputQuestion& question) = 0;
  // Empty when the dialog was cancelled. The name need not exist: the same dialog serves for opening and saving.
  virtual std::filesystem::path AskForFile(const FileQuestion& question) = 0;
  // One or several that exist.
  virtual std::vector<std::filesystem::path> AskForFiles(const FileQuestion& question) = 0;
  virtual std::filesystem::path AskForFolder(const FolderQuestion& question) = 0;
};

}  // namespace scrivanta
