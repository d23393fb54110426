// A command that lasts can be watched and stopped.
#include <windows.h>

#include <array>
#include <string>
#include <thread>

#include "shell/FrmInterruptControls.h"
#include "win/Handles.h"
#include "window/driver/Wait.h"
#include "window/driver/WindowProbe.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class InterruptTest : public WindowTest {};

// A file that has no end: who reads it works as long as this lives. It is a pipe; whoever looks whether it is a folder
// before reading it takes up a connection too, hence several.
class EndlessFile {
 public:
  EndlessFile() {
    for (OwnedFile& pipe : pipes_) {
      pipe.Reset(CreateNamedPipeW(kPath, PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_NOWAIT, PIPE_UNLIMITED_INSTANCES,
                                  kBlock, 0, 0, nullptr));
    }
    feeder_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested()) {
        Feed();
        Sleep(kPauseMilliseconds);
      }
    });
  }

  std::filesystem::path path() const { return kPath; }

 private:
  static constexpr const wchar_t* kPath = L"\\\\.\\pipe\\ScrivantaEndless.txt";
  // Some megabytes a second: enough to be asked for more all the time, not enough to fill the memory.
  static constexpr DWORD kBlock = 1U << 18U;
  static constexpr DWORD kPauseMilliseconds = 10;

  void Feed() const {
    const std::string block(kBlock, 'x');
    for (const OwnedFile& pipe : pipes_) {
      DWORD written = 0;
      WriteFile(pipe.get(), block.data(), kBlock, &written, nullptr);
    }
  }

  std::array<OwnedFile, 4> pipes_;
  std::jthread feeder_;
};

TEST_F(InterruptTest, LongWorkCanBeStoppedAndLeavesTheDocumentAsItWas) {
  const auto document = folder.Write(u"原稿.txt", Gbk(u"原稿"));
  app.Start(document.u16string());
  const EndlessFile endless;
  const auto expectUntouched = [&] {
    EXPECT_EQ(IsWindowEnabled(app.Editor().window()), TRUE);
    app.ExpectText(u"原稿");
    app.ExpectStatus(document.u16string());
    app.ExpectCaption(u"Scrivanta " + document.u16string());
  };

  app.StartToDrop(endless.path());
  DialogDriver interrupt = app.ExpectInterruptWindow();
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE);
  interrupt.Press(CmdStop).WaitUntilGone();
  expectUntouched();

  app.StartToDrop(endless.path());
  app.ExpectInterruptWindow();
  app.Press("Esc");
  expectUntouched();

  app.StartToDrop(endless.path());
  interrupt = app.ExpectInterruptWindow();
  PostMessageW(interrupt.Control(CmdGoOn), BM_CLICK, 0, 0);
  interrupt.WaitUntilGone();
  EXPECT_EQ(IsWindowEnabled(app.Editor().window()), FALSE);
  app.Press("Esc");
  expectUntouched();
}

}  // namespace
}  // namespace scrivanta
