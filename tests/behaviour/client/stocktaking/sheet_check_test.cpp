#include "tests/behaviour/client/stocktaking/counting_client.h"

namespace tallyra::client {
namespace {

TEST_F(CountingClient, TellsAllErrorsOfASheetAtOnceAndWritesNothing) {
  EXPECT_EQ(import("part;counted;price;department;date\n"
                   "bolt-1;1,5;;10;2024/01/31\n"
                   "Bolt1;$5;2;10;2024/01/31\n"
                   "BOLT-1;(5);;10;\n"
                   "nothing;1;;10;\n"
                   "frame;1;free;20;2024/01/30\n"
                   "frame;-1;;;31.1.2024\n"
                   "it's;1;;;\n"),
            exit_failed);
  for (const char* error :
       {"nothing was written", "line 2: counted: '1,5' is no number: a comma", "line 3: counted: '$5' is no",
        "line 4: counted: '(5)' is no number: write what is below zero", "line 5: there is no part nothing",
        "line 6: price: 'free' is no number", "line 6: department 20 on a sheet of department 10",
        "line 6: date 2024/01/30 on a sheet of another date", "line 7: counted: -1 is below zero",
        "line 7: '31.1.2024' is no date", "line 7: part frame was counted on line 6 already",
        "line 8: part it's has an apostrophe"})
    EXPECT_TRUE(says(error)) << error << "\n" << client_.error();
  EXPECT_EQ(stored(), "");
}

TEST_F(CountingClient, RefusesASheetThatBelongsNowhere) {
  EXPECT_EQ(import("part,counted\nbolt-1,1\n"), exit_failed);
  EXPECT_TRUE(says("no department") && says("no date")) << client_.error();
  EXPECT_EQ(import("part,counted\nbolt-1,1\n", {"--department", "99", "--date", "2024/01/31"}), exit_failed);
  EXPECT_TRUE(says("no department 99"));
  close_and_approve("2024/01/31");
  EXPECT_EQ(import("part,counted\nbolt-1,1\n", on_department_10), exit_failed);
  EXPECT_TRUE(says("2024/01/31 is closed"));
  EXPECT_EQ(stored(), "");
}

}  // namespace
}  // namespace tallyra::client
