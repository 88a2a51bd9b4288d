#include "server/describe/region.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/server/describe/example_class.h"

namespace tallyra::server::describe {
namespace {

TEST(Region, TakesThePlaceOfWhatStandsBetweenItsMarks) {
  EXPECT_EQ(with_region("before\n"
                        "// tallyra-describe: names\n"
                        "old\nolder\n"
                        "// tallyra-describe: end\n"
                        "behind",
                        {"file", "names", "new\n"}),
            "before\n"
            "// tallyra-describe: names\n"
            "new\n"
            "// tallyra-describe: end\n"
            "behind");
}

TEST(Region, LeavesOthersAlone) {
  const std::string content =
      "<!-- tallyra-describe: CTranHeads -->\n<!-- tallyra-describe: end -->\n"
      "<!-- tallyra-describe: CTranHead -->\n<!-- tallyra-describe: end -->\n";
  EXPECT_EQ(with_region(content, {"file", "CTranHead", "row\n"}),
            "<!-- tallyra-describe: CTranHeads -->\n<!-- tallyra-describe: end -->\n"
            "<!-- tallyra-describe: CTranHead -->\nrow\n<!-- tallyra-describe: end -->\n");
}

TEST(Region, ThatIsNotMarkedIsAnError) {
  for (const char* content :
       {"", "tallyra-describe: names\n", "tallyra-describe: names2\ntallyra-describe: end\n"})
    EXPECT_THROW(with_region(content, {"file", "names", ""}), std::runtime_error) << content;
}

TEST(Region, EveryClassHasOneInTheReference) {
  const ClassTable table = example_class();
  const auto list = regions({&table, 1});
  ASSERT_FALSE(list.empty());
  EXPECT_EQ(list.back().path, "docs/classes.md");
  EXPECT_EQ(list.back().name, "CSTKBin");
}

}  // namespace
}  // namespace tallyra::server::describe
