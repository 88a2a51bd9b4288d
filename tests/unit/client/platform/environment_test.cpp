#include "client/platform/environment.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tallyra::client {
namespace {

TEST(EnvironmentVariable, IsNothingWhenItIsNotSetAndATextWhenItIs) {
  EXPECT_EQ(environment_variable("TALLYRA_NO_SUCH_VARIABLE"), std::nullopt);
  const auto path = environment_variable("PATH");
  ASSERT_TRUE(path);
  EXPECT_FALSE(path->empty());
}

#ifndef _WIN32
TEST(EnvironmentVariable, ThatIsSetToNothingIsEmpty) {
  ::setenv("TALLYRA_TEST_VARIABLE", "", 1);
  EXPECT_EQ(environment_variable("TALLYRA_TEST_VARIABLE"), "");
  ::setenv("TALLYRA_TEST_VARIABLE", "螺丝", 1);
  EXPECT_EQ(environment_variable("TALLYRA_TEST_VARIABLE"), "螺丝");
  ::unsetenv("TALLYRA_TEST_VARIABLE");
  EXPECT_EQ(environment_variable("TALLYRA_TEST_VARIABLE"), std::nullopt);
}
#endif

}  // namespace
}  // namespace tallyra::client
