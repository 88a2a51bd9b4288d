#include "bench/plan.h"

#include <gtest/gtest.h>

#include <set>

#include "bench/limits.h"

namespace tallyra::bench {
namespace {

using Name = std::pair<std::string, std::string>;

std::set<Name> with_limits(const Plan& plan) {
  std::set<Name> names;
  for (const Scenario& scenario : plan.scenarios)
    for (const Against against : all_against)
      if (limit_of(scenario.work, scenario.size, against)) names.emplace(scenario.work, scenario.size);
  return names;
}

std::vector<Against> limited(const Scenario& scenario) {
  if (scenario.on_server) return {Against::text};
  return {Against::odbc, Against::prepared};
}

class PlanTest : public ::testing::Test {
 protected:
  Companies companies_{"unused", "unused"};
  ServerCompanies on_server_{companies_, "unused"};
};

// A limit is found by its work and size: one of another spelling would hold nothing.
TEST_F(PlanTest, HasALimitForAllWorkButTheRequirement) {
  const Plan plan = full_plan(companies_, on_server_);
  for (const Scenario& scenario : plan.scenarios) {
    if (scenario.work == "requirement of a part") continue;
    for (const Against against : limited(scenario)) {
      const Limit* const limit = limit_of(scenario.work, scenario.size, against);
      ASSERT_NE(limit, nullptr) << scenario.work << ", " << scenario.size;
      EXPECT_LE(limit->goal, limit->now) << scenario.work << ", " << scenario.size;
    }
  }
  EXPECT_EQ(with_limits(plan).size(), 10U);
}

TEST_F(PlanTest, HoldsTheSmallerSizesToTheSameLimits) {
  EXPECT_EQ(with_limits(quick_plan(companies_, on_server_)),
            (std::set<Name>{{"approval", "50 lines over 5,000"},
                            {"month close", "5 x 200 x 5,000"},
                            {"month close on PostgreSQL", "5 x 200 x 5,000"},
                            {"record calls", "800 calls"}}));
}

TEST_F(PlanTest, LooksAtGrowthInOneRespectAtATime) {
  std::string text;
  for (const Doubled& doubled : full_plan(companies_, on_server_).doubled)
    text += doubled.what + ": " + doubled.once.size + " to " + doubled.twice.size + "\n";
  EXPECT_EQ(text,
            "movements: 20 x 2,000 x 200,000 to 20 x 2,000 x 400,000\n"
            "parts: 20 x 2,000 x 200,000 to 20 x 4,000 x 200,000\n"
            "departments: 20 x 2,000 x 200,000 to 40 x 2,000 x 200,000\n");
}

TEST_F(PlanTest, LooksAtMemoryOverTenThousandRecordCalls) {
  EXPECT_EQ(full_plan(companies_, on_server_).calls_for_memory, 10'000);
}

}  // namespace
}  // namespace tallyra::bench
