#include "client/options.h"

#include <gtest/gtest.h>

#include "tests/unit/client/usage_error_text.h"

namespace tallyra::client {
namespace {

using Strings = std::vector<std::string>;

constexpr Option known[] = {{"--from", "DATE", ""}, {"--all", "", ""}, {"--force", "NAME", ""}};

Words read(const Strings& words) {
  return read_words(words, known);
}

TEST(Options, StandAnywhereAndLeaveTheArguments) {
  const Words words = read({"--from", "2024/01/01", "A", "--all", "-5", "--force=x"});
  EXPECT_EQ(words.arguments, (Strings{"A", "-5"}));
  EXPECT_EQ(words.value("--from"), "2024/01/01");
  EXPECT_TRUE(words.has("--all"));
  EXPECT_FALSE(words.has("--to"));
}

TEST(Options, EndAtTwoDashes) {
  EXPECT_EQ(read({"A", "--", "--all", "-x"}).arguments, (Strings{"A", "--all", "-x"}));
}

TEST(Options, CollectValuesThatComeMoreThanOnceOrWithCommas) {
  EXPECT_EQ(read({"--force", "a,b", "--force=c"}).values("--force"), (Strings{"a", "b", "c"}));
  EXPECT_EQ(read({"--force", ",a,,"}).values("--force"), (Strings{"a"}));
}

TEST(Options, ThatAreUnknownAreRefusedWithTheOneTheyResemble) {
  EXPECT_EQ(usage_error_text([] {
              read({"--form", "x"});
            }),
            "there is no option --form; did you mean '--from'?");
  EXPECT_EQ(usage_error_text([] { read({"--zzzzzz"}); }), "there is no option --zzzzzz");
}

TEST(Options, HaveTheirValueOrNone) {
  EXPECT_EQ(usage_error_text([] { read({"--from"}); }), "--from needs a value: DATE");
  EXPECT_EQ(usage_error_text([] { read({"--all=1"}); }), "--all takes no value");
}

TEST(Options, AreSkippedWithTheirValuesOnTheWayToTheFirstWord) {
  EXPECT_EQ(first_plain_word(Strings{"--db", "close", "check", "x"}), 2U);
  EXPECT_EQ(first_plain_word(Strings{"--db=close", "check"}), 1U);
  EXPECT_EQ(first_plain_word(Strings{"--json", "--", "check"}), 2U);
  EXPECT_EQ(first_plain_word(Strings{"--json"}), 1U);
}

}  // namespace
}  // namespace tallyra::client
