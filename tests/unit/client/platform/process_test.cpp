#include "client/platform/process.h"

#include <gtest/gtest.h>

namespace tallyra::client {
namespace {

TEST(ProcessOfThisMachine, IsAliveOnlyAsTheOneThatItWas) {
  ProcessIdentity self = this_process();
  EXPECT_GT(self.id, 0);
  EXPECT_NE(self.started, "");
  EXPECT_TRUE(is_alive(self));
  self.started += "1";
  EXPECT_FALSE(is_alive(self));
  EXPECT_FALSE(is_alive({0, ""}));
  EXPECT_FALSE(is_alive({999999999, ""}));
}

TEST(Machine, HasANameAndALogin) {
  EXPECT_NE(host_name(), "");
  EXPECT_NE(system_user(), "");
}

}  // namespace
}  // namespace tallyra::client
