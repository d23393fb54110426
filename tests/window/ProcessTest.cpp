// What only the shipped program shows, in processes of its own.
#include <vector>

#include "window/driver/ProgramProcess.h"
#include "window/driver/WindowTest.h"

namespace scrivanta {
namespace {

class ProcessTest : public WindowTest {};

TEST_F(ProcessTest, ProgramEndsWithZero) {
  ProgramProcess program;
  program.Close();
  EXPECT_EQ(program.WaitForEnd(), 0);
}

}  // namespace
}  // namespace scrivanta
