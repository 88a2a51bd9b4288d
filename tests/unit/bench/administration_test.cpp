#include "bench/administration.h"

#include <gtest/gtest.h>

#include "server/local_classes.h"
#include "standins/ado/local_classes.h"
#include "standins/corvane/local_classes.h"
#include "standins/lexbank/local_classes.h"
#include "tests/support/test_folder.h"

namespace tallyra::bench {
namespace {

Comparison taking(const std::vector<double>& seconds) {
  Comparison result;
  for (const double each : seconds) result.component.add({each, 1, 0});
  return result;
}

Look look_of(const char* verb) {
  Look look;
  look.verb.work = verb;
  look.verb.size = "small";
  return look;
}

TEST(Looks, AreHeldAgainstTheClose) {
  const LookShare share = share_of(look_of("check"), taking({2, 4, 8}), taking({1, 1, 3}));
  EXPECT_EQ(share.verb, "check");
  EXPECT_EQ(share.size, "small");
  EXPECT_DOUBLE_EQ(share.seconds, 1);
  EXPECT_DOUBLE_EQ(share.of_medians, 0.25);
  EXPECT_DOUBLE_EQ(share.of_shortest, 0.5);
}

// As with every limit, a run that was disturbed is none that breaks it.
TEST(Looks, AreTooLongWhenMediansAndShortestRunsAre) {
  EXPECT_EQ(broken_limits(LookShare{"check", "small", 1, 0.99, 0.99}).size(), 0U);
  EXPECT_EQ(broken_limits(LookShare{"check", "small", 1, 1.2, 0.99}).size(), 0U);
  EXPECT_EQ(broken_limits(LookShare{"check", "small", 1, 0.99, 1.2}).size(), 0U);
  EXPECT_EQ(
      broken_limits(LookShare{"check", "small", 1, 1.2, 1.0}),
      std::vector<std::string>{"check: 1.20 of the time of the close, it has to be less than all of it"});
}

// A verb that was refused at once would look quick.
TEST(Looks, DoTheWholeWork) {
  server::register_classes();
  standins::ado::register_classes();
  standins::corvane::register_classes();
  standins::lexbank::register_classes();
  const tests::TestFolder folder;
  Companies companies(folder.path(), TALLYRA_SCHEMA);
  const auto all = looks(companies, {2, 30, 100});
  ASSERT_EQ(all.size(), 3U);
  for (const Look& look : all) {
    const auto company = look.verb.company();
    company->renew();
    EXPECT_GT(look.verb.run(company->connection_string()), 50U) << look.verb.work;
  }
  const auto unclosed = all[0].close.company();
  unclosed->renew();
  EXPECT_THROW(all[1].verb.run(unclosed->connection_string()), std::runtime_error);
}

}  // namespace
}  // namespace tallyra::bench
