#include "database/CompanionProcess.h"

#include <windows.h>

#include "text/win/Handles.h"

namespace scrivanta {

class CompanionProcess::Pipes final : public ByteSource, public ByteSink {
 public:
  explicit Pipes(const std::filesystem::path& program) : program_(program) {
    OwnedFile childInput;
    OwnedFile childOutput;
    MakePipe(childInput, toChild_, toChild_);
    MakePipe(fromChild_, childOutput, fromChild_);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = childInput.get();
    startup.hStdOutput = childOutput.get();
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started = {};
    std::wstring command = L'"' + program.wstring() + L'"';
    if (CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                       &startup, &started) == FALSE) {
      Fail();
    }
    CloseHandle(started.hThread);
    process_.Reset(started.hProcess);
  }

  ~Pipes() override {
    toChild_.Reset();
    WaitForSingleObject(process_.get(), INFINITE);
  }

  std::size_t Read(std::span<char> buffer) override {
    DWORD count = 0;
    // Fails when the other end is closed.
    return ReadFile(fromChild_.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) == FALSE
               ? 0
               : count;
  }

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD count = 0;
      if (WriteFile(toChild_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == FALSE) {
        Fail();
      }
      bytes.remove_prefix(count);
    }
  }

 private:
  [[noreturn]] void Fail() const {
    throw FileError(program_, std::error_code(static_cast<int>(GetLastError()), std::system_category()));
  }

  // The end that stays here is not handed on to the child.
  void MakePipe(OwnedFile& readEnd, OwnedFile& writeEnd, const OwnedFile& own) const {
    SECURITY_ATTRIBUTES inherited = {};
    inherited.nLength = sizeof inherited;
    inherited.bInheritHandle = TRUE;
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    if (CreatePipe(&read, &write, &inherited, 0) == FALSE) {
      Fail();
    }
    readEnd.Reset(read);
    writeEnd.Reset(write);
    SetHandleInformation(own.get(), HANDLE_FLAG_INHERIT, 0);
  }

  std::filesystem::path program_;
  OwnedFile toChild_;
  OwnedFile fromChild_;
  OwnedKernelObject process_;
};

CompanionProcess::CompanionProcess(const std::filesystem::path& program) : pipes_(std::make_unique<Pipes>(program)) {}

CompanionProcess::~CompanionProcess() = default;

ByteSource& CompanionProcess::output() noexcept {
  return *pipes_;
}

ByteSink& CompanionProcess::input() noexcept {
  return *pipes_;
}

std::filesystem::path CompanionProgram() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  while (length == path.size()) {
    path.resize(path.size() * 2);
    length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  }
  path.resize(length);
  return std::filesystem::path(path).replace_filename(L"ScrivantaJet32.exe");
}

}  // namespace scrivanta
