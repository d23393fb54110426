#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"
#include "text/FileClaim.h"

namespace scrivanta {
namespace {

TEST(FileClaim, OneAtATime) {
  const testing::TemporaryFolder folder;
  const auto path = folder.path() / "claim";
  auto claim = FileClaim::Take(path);
  ASSERT_TRUE(claim);
  EXPECT_FALSE(FileClaim::Take(path));
  claim.reset();
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_TRUE(FileClaim::Take(folder.Put("claim", "left by one that was killed")));
  EXPECT_FALSE(FileClaim::Take(folder.path() / "no folder" / "claim"));
}

}  // namespace
}  // namespace scrivanta
