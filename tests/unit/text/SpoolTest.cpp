#include <gtest/gtest.h>

#include "text/Spool.h"

namespace scrivanta::testing {
namespace {

TEST(Spool, GivesBackWhatItWasGivenFromMemoryAndFromItsFile) {
  for (const std::size_t times : {0U, 3U, 12U}) {
    const std::string block(1'000'000, static_cast<char>('a' + times));
    Spool spool;
    for (std::size_t i = 0; i < times; ++i) {
      spool.Write(block);
    }
    for (int round = 0; round < 2; ++round) {
      StringSink sink;
      CopyBytes(spool, sink);
      EXPECT_EQ(sink.bytes().size(), times * block.size());
      EXPECT_EQ(sink.bytes().find_first_not_of(block[0]), std::string::npos);
      spool.Rewind();
    }
  }
}

}  // namespace
}  // namespace scrivanta::testing
