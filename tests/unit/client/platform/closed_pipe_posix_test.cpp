#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "client/platform/closed_pipe.h"

namespace tallyra::client {
namespace {

// Writes to a pipe whose reader has gone away; 0, or what the write has failed with.
int write_to_nobody() {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const int failure = ::write(ends[1], "x", 1) == 1 ? 0 : errno;
  ::close(ends[1]);
  return failure;
}

TEST(ClosedPipe, FailsAWriteAndDoesNotEndTheProcess) {
  const ClosedPipeIgnored ignored;
  EXPECT_EQ(write_to_nobody(), EPIPE);
}

TEST(ClosedPipeDeathTest, EndsTheProcessOnceMoreAfterwards) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        { const ClosedPipeIgnored ignored; }
        write_to_nobody();
      },
      testing::KilledBySignal(SIGPIPE), "");
}

}  // namespace
}  // namespace tallyra::client
