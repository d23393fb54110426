#include "ScrivantaApp.h"

#include <commctrl.h>

#include "shell/CommandTable.h"
#include "shell/FrmMain.h"
#include "shell/ScrivantaRegistry.h"
#include "shell/ShellCommands.h"
#include "win/ComApartment.h"
#include "win/MessageLoop.h"
#include "win/RichEdit.h"

namespace scrivanta {

namespace {

// The registry-backed store alone.
class RegistrySettings final : public Settings {
 public:
  explicit RegistrySettings(RegistryStore& store) : store_(store) {}

  void Save(std::u16string_view key, std::u16string_view value, Store, std::u16string_view section) override {
    store_.Write(section.empty() ? kFormSection : section, key, value);
  }
  std::optional<std::u16string> Find(std::u16string_view key, Store, std::u16string_view section) const override {
    return store_.Read(section.empty() ? kFormSection : section, key);
  }

 private:
  RegistryStore& store_;
};

}  // namespace

int RunApp(HINSTANCE instance, const std::u16string& commandLine, std::atomic<HWND>* window) {
  const ComApartment apartment;
  const OwnedLibrary richEdit = LoadRichEditLibrary();
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);

  MessageLoop loop;
  WindowHost host{instance, loop, &ShowFailure};
  ScrivantaRegistry registry(kProgramTitle);
  RegistrySettings settings(registry);
  CommandTable commands;
  FrmMain mainWindow(host, settings, commands);
  RegisterShellCommands(commands, mainWindow);
  mainWindow.Open(commandLine);
  if (window != nullptr) {
    window->store(mainWindow.handle());
  }
  return loop.Run();
}

}  // namespace scrivanta
