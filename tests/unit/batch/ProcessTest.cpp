// The console program as a process of its own: what it leaves behind when it is ended from outside.
#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/BatchRun.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"

namespace scrivanta::testing {
namespace {

struct Pipe {
  Pipe() { EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0); }
  int ends[2] = {-1, -1};  // for reading, for writing
};

// Runs the program that stands beside this one; prepare is called in the new process.
pid_t Start(std::vector<std::string> arguments, const std::function<void()>& prepare) {
  arguments.insert(arguments.begin(),
                   std::filesystem::read_symlink("/proc/self/exe").parent_path() / "scrivanta-batch");
  std::vector<char*> pointers;
  for (std::string& argument : arguments) {
    pointers.push_back(argument.data());
  }
  pointers.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    prepare();
    execv(pointers.front(), pointers.data());
    _exit(127);
  }
  return child;
}

int StatusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

class BatchProcess : public ::testing::Test {
 protected:
  // The program has begun its work once there is a file beside the target. It must not have ended by itself.
  void WaitForTemporaryFile(pid_t child) const {
    while (FilesIn(folder_.path()) < 2) {
      ASSERT_EQ(waitpid(child, nullptr, WNOHANG), 0);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  TemporaryFolder folder_;
  std::string target_ = folder_.Put("target.txt", "old").string();
};

TEST_F(BatchProcess, LeavesNoTemporaryFileWhenItIsEnded) {
  for (const int signal : {SIGHUP, SIGTERM, SIGINT}) {
    const Pipe input;
    const pid_t child = Start({"trim-lines", "-o", target_}, [&] { dup2(input.ends[0], STDIN_FILENO); });
    WaitForTemporaryFile(child);
    kill(child, signal);
    EXPECT_EQ(StatusOf(child), 3);
    EXPECT_EQ(FilesIn(folder_.path()), 1U);
    close(input.ends[0]);
    close(input.ends[1]);
  }
  EXPECT_EQ(ReadWholeFile(target_), "old");
}

TEST_F(BatchProcess, TakesAFileSizeLimitForAFullDisk) {
  const std::string large = folder_.Put("large.txt", std::string(100'000, 'x')).string();
  const pid_t child = Start({"trim-lines", large, "-o", target_}, [] {
    const rlimit limit{1'000, 1'000};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(StatusOf(child), 3);
  EXPECT_EQ(FilesIn(folder_.path()), 2U);
  EXPECT_EQ(ReadWholeFile(target_), "old");
}

TEST_F(BatchProcess, FailsWhenNobodyReadsItsOutput) {
  const Pipe output;
  close(output.ends[0]);
  const pid_t child = Start({"trim-lines", target_}, [&] { dup2(output.ends[1], STDOUT_FILENO); });
  EXPECT_EQ(StatusOf(child), 3);
  close(output.ends[1]);
}

}  // namespace
}  // namespace scrivanta::testing
