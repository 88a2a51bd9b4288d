#include "tests/unit/client/client_run.h"

namespace tallyra::client {
namespace {

TEST_F(Client, TakesARawCallBehindTheWordCallToo) {
  script_class("Tallyra.CRevAddr", "Delete", [](automation::Arguments) { return automation::Value(100.0F); });
  EXPECT_EQ(run({"call", "CRevAddr", "Delete", "A1"}), exit_done);
  EXPECT_EQ(run({"--json", "call", "CRevAddr", "Delete", "A1"}), exit_done);
}

}  // namespace
}  // namespace tallyra::client
