#include "database/CompanionProcess.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scrivanta {

// One socket in both directions: writing to it when the companion has gone raises no signal.
class CompanionProcess::Pipes final : public ByteSource, public ByteSink {
 public:
  explicit Pipes(const std::filesystem::path& program) : program_(program) {
    std::array<int, 2> ends = {};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
      throw FileError(program_, LastFileError());
    }
    own_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string name = program_.string();
    std::array<char*, 2> arguments = {name.data(), nullptr};
    const int code = posix_spawn(&process_, name.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (code != 0) {
      close(own_);
      throw FileError(program_, std::error_code(code, std::generic_category()));
    }
  }

  ~Pipes() override {
    close(own_);
    waitpid(process_, nullptr, 0);
  }

  std::size_t Read(std::span<char> buffer) override {
    const ssize_t count = recv(own_, buffer.data(), buffer.size(), 0);
    return count < 0 ? 0 : static_cast<std::size_t>(count);
  }

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = send(own_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count < 0) {
        throw FileError(program_, LastFileError());
      }
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

 private:
  std::filesystem::path program_;
  int own_ = -1;
  pid_t process_ = -1;
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
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).replace_filename("scrivanta-companion");
}

}  // namespace scrivanta
