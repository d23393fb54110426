#include <gtest/gtest.h>

#include "crypto/RandomSequence.h"

namespace scrivanta {
namespace {

// Numbers are given as the state that they show, over 2^24.
constexpr float Drawn(int state) {
  return static_cast<float>(state) / 16'777'216.0F;
}

// Worked out by hand from the definition in the header.
TEST(RandomSequence, DrawsTheWorkedValues) {
  RandomSequence random;
  for (const int state : {11'837'123, 8'949'370, 9'722'709, 4'858'052}) {
    EXPECT_EQ(random.Next(), Drawn(state));
  }
  EXPECT_EQ(random.Next(0), Drawn(4'858'052)) << "the last one again";
  EXPECT_EQ(random.Next(-0.0F), Drawn(4'858'052));
  RandomSequence other;
  EXPECT_EQ(other.Next(3.5F), Drawn(11'837'123)) << "a positive number says nothing";
}

TEST(RandomSequence, RestartsWhereANegativeNumberSays) {
  RandomSequence random;
  random.Next();
  // -1 is BF800000: 800000 and BF make 8000BF.
  EXPECT_EQ(random.Next(-1), Drawn(3'758'214));
  EXPECT_EQ(random.Next(), Drawn(601'393));
  EXPECT_EQ(random.Next(-2.5F), Drawn(5'676'163));
  EXPECT_EQ(random.Next(), Drawn(13'210'938));
  EXPECT_EQ(random.Next(-1), Drawn(3'758'214));
}

TEST(RandomSequence, IsReseededInAllButTheLowestByte) {
  struct Case {
    double seed;
    int state;
    int next;
  };
  // After one number the state is B49EC3.
  for (const Case& c : {Case{0.0, 0x0000C3, 11'430'010}, {1.0, 0x3FF0C3, 11'442'298}, {0.1, 0xA620C3, 3'934'330}}) {
    RandomSequence random;
    random.Next();
    random.Reseed(c.seed);
    EXPECT_EQ(random.Next(0), Drawn(c.state)) << c.seed;
    EXPECT_EQ(random.Next(), Drawn(c.next)) << c.seed;
  }
}

}  // namespace
}  // namespace scrivanta
