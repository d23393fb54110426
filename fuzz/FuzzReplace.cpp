#include <string_view>

#include <gtest/gtest.h>

#include "fuzz/RunFuzz.h"
#include "search/KeptFiles.h"
#include "search/ReplaceRule.h"
#include "support/TemporaryFolder.h"
#include "text/ExplainedError.h"

namespace scrivanta {
namespace {

// A list that was tampered with leads to no copy outside its run.
void FuzzListOfKeptFiles(std::string_view bytes) {
  static const testing::TemporaryFolder folder;
  const std::filesystem::path run = folder.path() / "run-1";
  std::filesystem::create_directories(run);
  folder.Put("run-1/files.txt", bytes);
  try {
    for (const KeptFile& file : FilesKept(folder.path())) {
      EXPECT_EQ(file.copy.parent_path(), run);
    }
  } catch (const ExplainedError&) {
    // What is none is refused.
  }
}

// A file in which no place is ticked is the same file.
void FuzzFileWithoutTicks(std::string_view bytes) {
  static const testing::TemporaryFolder folder;
  static const ReplaceRule rule({.findText = u"a|中\r\n|c", .replacement = u"中|a|"}, BuiltInRegExpEngine());
  NoProgress progress;
  for (const char* name : {"f.txt", "f.rtf"}) {
    if (const auto found = rule.FindIn(folder.Put(name, bytes), progress)) {
      EXPECT_EQ(ReplaceRule::BytesWith(found->file, {}), bytes);
      ReplaceRule::BytesWith(found->file, found->edits);
    }
  }
}

TEST(Fuzz, ListOfKeptFiles) {
  static constexpr std::string_view kInputs[] = {
      "Scrivanta replaced files: copy, size and fingerprint before, size and fingerprint after, "
      "path\r\n1.bak\t5\t123\t6\t456\t/a%0Ab%25.txt\r\n"};
  static constexpr std::string_view kTokens[] = {"\t", "..", "%2F", "/", "\r\n", "99999999999999999999", "-"};
  RunFuzz(FuzzListOfKeptFiles, kInputs, kTokens);
}

TEST(Fuzz, FileWithoutTicks) {
  static constexpr std::string_view kInputs[] = {"a\xD6\xD0\r\nc\n\xFF",
                                                 "\xEF\xBB\xBF"
                                                 "a\xE4\xB8\xAD\r\n",
                                                 "{\\rtf1\\ansi\\ansicpg936 a\\'d6\\'d0\\par c\\b a}"};
  static constexpr std::string_view kTokens[] = {"a", "c", "\r", "\n", "\xD6\xD0", "\\par ", "\\b ", "{", "}"};
  RunFuzz(FuzzFileWithoutTicks, kInputs, kTokens);
}

}  // namespace
}  // namespace scrivanta
