#include "client/stocktaking/approval.h"

#include <filesystem>

#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, SaysThatAnApprovalIsNotStored) {
  enter();
  sql({"DELETE FROM USERRIGHTS"});
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("C1 is not approved, nothing was stored: error 10000016")) << client_.error();
  EXPECT_EQ(posted(), "");
}

TEST_F(CountingClient, ApprovesNothingWhileNoNumberCanBeIssued) {
  if (!company_.is_sqlite()) GTEST_SKIP() << "the counters are no file";
  enter();
  const std::string keys = company_.file().string() + ".keys";
  std::filesystem::remove(keys);
  std::filesystem::create_directory(keys);
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_failed);
  EXPECT_TRUE(says("no number is issued for the posting") && says("nothing was done")) << client_.error();
  EXPECT_EQ(posted(), "");
  EXPECT_EQ(company_.rows("SELECT STATUSSN FROM STKCHECKHD"), "0\n");
  std::filesystem::remove(keys);
  EXPECT_EQ(run({"count", "approve", "C1"}), exit_done) << client_.all();
}

}  // namespace
}  // namespace tallyra::client
