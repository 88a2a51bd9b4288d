#include "automation/yield.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "tests/unit/automation/error_of.h"

namespace tallyra::automation {
namespace {

TEST(LocalYield, RunsTheHandlerOfItsThreadAndNothingWithoutOne) {
  int turns = 0;
  yield();
  {
    const ScopedYield handler([&] { ++turns; });
    yield();
    std::thread([] { yield(); }).join();
    EXPECT_EQ(turns, 1);
    yield();
  }
  yield();
  EXPECT_EQ(turns, 2);
}

TEST(LocalYield, GoesBackToTheHandlerBefore) {
  std::string turns;
  const ScopedYield outer([&] { turns += 'o'; });
  {
    const ScopedYield inner([&] { turns += 'i'; });
    yield();
  }
  yield();
  EXPECT_EQ(turns, "io");
}

TEST(LocalYield, EndsTheWorkWithTheErrorOfTheHandler) {
  const ScopedYield handler([] { throw Error(18); });
  EXPECT_EQ(error_of([] { yield(); }), 18);
}

}  // namespace
}  // namespace tallyra::automation
