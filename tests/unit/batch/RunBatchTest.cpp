#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "batch/BatchCommand.h"
#include "support/BatchRun.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

TEST(RunBatch, ReadsFromWhereItIsTold) {
  const TemporaryFolder folder;
  const std::string file = folder.Put("in put.txt", " file\n").string();
  EXPECT_EQ(RunBatchOn(" stream\n", {"trim-lines"}).output, "stream\r\n");
  EXPECT_EQ(RunBatchOn(" stream\n", {"trim-lines", "-"}).output, "stream\r\n");
  EXPECT_EQ(RunBatchOn(" stream\n", {"trim-lines", file}).output, "file\r\n");
}

TEST(RunBatch, WritesAFileInOneStep) {
  const TemporaryFolder folder;
  const std::filesystem::path target = folder.path() / "out.txt";
  const BatchResult result = RunBatchOn("a\n\nb", {"del-empty-lines", "-o", target.string()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(ReadWholeFile(target), "a\r\nb\r\n");
  EXPECT_EQ(FilesIn(folder.path()), 1U);
}

TEST(RunBatch, InputAndOutputMayBeTheSameFile) {
  const TemporaryFolder folder;
  const std::string file = folder.Put("both.txt", "a\n\nb\n").string();
  EXPECT_EQ(RunBatchOn("", {"del-empty-lines", file, "-o", file}).status, 0);
  EXPECT_EQ(ReadWholeFile(file), "a\r\nb\r\n");
  EXPECT_EQ(RunBatchOn("", {"add-tabs", file, "--output", file}).status, 0);
  EXPECT_EQ(ReadWholeFile(file), "a\r\nb\r\n");
}

TEST(RunBatch, AnInterruptLeavesEverythingAsItWas) {
  const TemporaryFolder folder;
  const std::string file = folder.Put("file.txt", "a\n\nb\n").string();
  const BatchResult result = RunBatchOn("", {"trim-lines", file, "-o", file}, true);
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.errors, "scrivanta-batch: interrupted\n");
  EXPECT_EQ(ReadWholeFile(file), "a\n\nb\n");
  EXPECT_EQ(RunBatchOn("a\n", {"trim-lines"}, true).output, "");
  EXPECT_EQ(FilesIn(folder.path()), 1U);
}

TEST(RunBatch, AFailureIsOneLineAndItsStatus) {
  const TemporaryFolder folder;
  const std::string missing = (folder.path() / "missing.txt").string();
  struct Case {
    std::vector<std::string> arguments;
    int status;
    std::string reason;  // somewhere in the line
  };
  const Case cases[] = {
      {{}, 2, "COMMAND"},
      {{"no-such-command"}, 2, "no-such-command"},
      {{"trim-lines", "--no-such-option"}, 2, "--no-such-option"},
      {{"trim-lines", "one", "two"}, 2, "two"},
      {{"trim-lines", "--encoding", "utf-16"}, 2, "encoding"},
      {{"del-lines", "--from", "1"}, 2, "--to"},
      {{"del-lines", "--from", "x", "--to", "2"}, 2, "--from"},
      {{"trim-lines", missing}, 3, missing},
      {{"trim-lines", folder.path().string()}, 3, folder.path().string()},
      {{"trim-lines", "-o", folder.path().string()}, 3, folder.path().string()},
      {{"trim-lines", "-o", missing + "/file"}, 3, missing},
  };
  for (const Case& c : cases) {
    const BatchResult result = RunBatchOn("text\n", c.arguments);
    EXPECT_EQ(result.status, c.status) << result.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
    EXPECT_NE(result.errors.find(c.reason), std::string::npos) << result.errors;
  }
  EXPECT_EQ(FilesIn(folder.path()), 0U);
}

TEST(RunBatch, TakesTextsThatLookLikeOptions) {
  EXPECT_EQ(RunBatchOn("a\nb\nc\n", {"del-lines", "--from", "-5", "--to", "2"}).output, "c\r\n");
  EXPECT_EQ(RunBatchOn("a\nb\nc\n", {"del-lines", "--from=3", "--to=2"}).output, "a\r\nb\r\nc\r\n");
  EXPECT_EQ(RunBatchOn("a-b", {"regexp-replace", "--pattern", "--replacement=", "--replacement", "x"}).output, "a-b");
}

// What stands behind the sign is the value, even if that is nothing; the next argument is another one.
TEST(RunBatch, TakesAnEmptyValueBehindTheSign) {
  EXPECT_EQ(RunBatchOn("a1", {"regexp-replace", "--replacement=", "--pattern=\\d"}).output, "a");
  EXPECT_EQ(RunBatchOn("a1", {"regexp-replace", "--pattern=", "--replacement", "x"}).output, "a1");
  EXPECT_EQ(RunBatchOn("ab", {"multi-replace", "--replace=", "--find", "a"}).output, "b");
  const TemporaryFolder folder;
  const std::string file = folder.Put("file", "A").string();
  const BatchResult result = RunBatchOn("", {"rijndael-encrypt", "--password=", file, "-o", file});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(ReadWholeFile(file), "A");
}

TEST(RunBatch, SaysInSentencesWhatIsWrongWithArguments) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"sort", "--order", "x"}, "--order: \"x\" is not one of down|up"},
      {{"sort", "--order"}, "--order needs a value: down|up"},
      {{"sort", "--from", "x"}, "this value cannot be used: --from = x"},
      {{"trim-lines", "--encoding", "latin1"}, "--encoding: \"latin1\" is not one of gbk|utf-8"},
      {{"rijndael-encrypt", "--bits", "5"}, "--bits: \"5\" is not one of 128|192|256"},
      {{"rndxorhash-encrypt", "--key-size", "0"}, "--key-size: Value 0 is not in the range 1 to 32767"},
  };
  for (const auto& [arguments, sentence] : cases) {
    EXPECT_EQ(RunBatchOn("", arguments).errors, "scrivanta-batch: " + sentence + "\n");
  }
}

// All outputs are written out before the first is put in place.
TEST(RunBatch, PutsNoOutputInPlaceWhenOneCannotBeFinished) {
  const TemporaryFolder folder;
  const std::string have = folder.Put("have", "old").string();
  const std::string haveNot = folder.Put("have-not", "old").string();
  const FileSizeLimit full(1000);
  const BatchResult result =
      RunBatchOn("q\n" + std::string(2000, 'x'), {"filter", "--keyword", "q", "--have", have, "--have-not", haveNot});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(ReadWholeFile(have), "old");
  EXPECT_EQ(ReadWholeFile(haveNot), "old");
  EXPECT_EQ(FilesIn(folder.path()), 2U);
}

TEST(RunBatch, WritesAPipeStraight) {
  const TemporaryFolder folder;
  const std::filesystem::path pipe = folder.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = ReadWholeFile(pipe); });
  EXPECT_EQ(RunBatchOn(" a\n", {"trim-lines", "-o", pipe.string()}).status, 0);
  reader.join();
  EXPECT_EQ(received, "a\r\n");
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST(RunBatch, EveryCommandExplainsItself) {
  EXPECT_EQ(RunBatchOn("", {"--version"}).output.rfind("scrivanta-batch ", 0), 0U);
  const std::string help = RunBatchOn("", {"--help"}).output;
  for (const BatchCommand& command : BatchCommands()) {
    EXPECT_NE(help.find("\n  " + command.name + " "), std::string::npos) << command.name;
    const BatchResult own = RunBatchOn("", {command.name, "--help"});
    EXPECT_EQ(own.status, 0);
    EXPECT_NE(own.output.find(command.description), std::string::npos) << own.output;
    EXPECT_NE(own.output.find(command.example), std::string::npos) << own.output;
    EXPECT_EQ(command.example.rfind("scrivanta-batch " + command.name + " ", 0), 0U) << command.example;
  }
}

}  // namespace
}  // namespace scrivanta::testing
