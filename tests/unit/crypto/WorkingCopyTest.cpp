#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "crypto/WorkingCopy.h"
#include "support/TemporaryFolder.h"
#include "text/Bytes.h"

namespace scrivanta::testing {
namespace {

TEST(WorkingCopy, IsOverwrittenBeforeItIsDeleted) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "copy";
  const std::filesystem::path disk = folder.path() / "what stays on the disk";
  const std::string secret(100'000, 's');
  {
    const WorkingCopy copy(path);
    copy.Write(secret);
    std::filesystem::create_hard_link(path, disk);
    EXPECT_EQ(ReadWholeFile(disk), secret);
  }
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(ReadWholeFile(disk), std::string(secret.size(), '\0'));
}

}  // namespace
}  // namespace scrivanta::testing
