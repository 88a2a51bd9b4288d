#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

#include "tests/memory/deeds.h"
#include "tests/memory/failing_new.h"
#include "tests/memory/fresh_process.h"

// What a company's database holds after an allocation has failed anywhere in a writing method, the classes
// that stand in for ADO and the sibling libraries included, as the first error of a fresh process.
namespace tallyra {
namespace {

using automation::Error;
using automation::Object;
using automation::Value;
using memory::Deed;
using memory::Shortage;
using memory::StockedCompany;
using stage::Fields;
using stage::Outcome;

std::string text_of(const Outcome& outcome) {
  std::ostringstream text;
  text << outcome;
  return text.str();
}

struct Seen {
  std::string outcome;
  std::string content;
};

class Play {
 public:
  explicit Play(const Deed& deed) : deed_(deed), object_(company_.client(deed.class_name)) {}

  Seen run(std::optional<Shortage> shortage) {
    Fields fields = deed_.fields;
    std::optional<Value> result;
    std::int32_t raised = 0;
    shortage ? memory::begin(*shortage) : memory::begin_counting();
    try {
      result = deed_.call(object_, fields);
    } catch (const Error& error) {
      raised = error.number();
    }
    allocations_ = memory::end();
    return {result ? text_of(stage::outcome_of(object_, *result)) : "raised " + std::to_string(raised),
            company_.content()};
  }
  long allocations() const { return allocations_; }
  const StockedCompany& company() const { return company_; }

 private:
  const Deed& deed_;
  StockedCompany company_;
  Object object_;
  long allocations_ = 0;
};

struct Expectation {
  Deed deed;
  std::string before;
  std::string after;
};

// What is wrong with a call that the shortage has struck; nothing when all is well.
std::string fault_of(Play& play, const Expectation& expected, Shortage shortage) {
  const Seen seen = play.run(shortage);
  if (memory::failures() == 0) return "nothing has failed";
  const std::string told = seen.outcome + " with\n" + seen.content;
  if (seen.outcome == text_of(expected.deed.undisturbed))
    return seen.content == expected.after ? "" : "success: " + told;
  const bool own_error =
      seen.outcome == text_of(stage::trapped(7, "Out of memory")) || seen.outcome == "raised 7";
  if (!own_error && !expected.deed.asks_for_numbers) return told;
  if (seen.content != expected.before && !expected.deed.commits_step_by_step) return "failure: " + told;
  const Seen next = play.run(std::nullopt);
  if (next.outcome != text_of(expected.deed.undisturbed)) return "the next call: " + next.outcome;
  return next.content == expected.after ? "" : "after the next call:\n" + next.content;
}

// As many allocations as fit a test's time, at even distances, and all of the last ones, among which the
// transaction ends. All, when TALLYRA_ALL_ALLOCATIONS is set in the environment.
std::vector<long> chosen(long allocations) {
  const long spread = std::getenv("TALLYRA_ALL_ALLOCATIONS") ? allocations + 1 : 40;
  constexpr long last = 8;
  std::vector<long> list;
  for (long n = 1; n <= allocations; ++n)
    if (n > allocations - last || n % (1 + allocations / spread) == 0) list.push_back(n);
  return list;
}

class DatabaseSweep : public testing::TestWithParam<Deed> {};

INSTANTIATE_TEST_SUITE_P(Methods, DatabaseSweep, testing::ValuesIn(memory::deeds()),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(DatabaseSweep, HoldsWhatItHeldUnlessTheCallSucceedsAndTheNextCallDoes) {
  Expectation expected{GetParam(), {}, {}};
  Play play(expected.deed);
  long allocations = 0;
  expected.before = memory::in_fresh_process([&] { return play.company().content(); });
  expected.after = memory::in_fresh_process([&] { return play.run(std::nullopt).content; });
  play.company().go_back();
  allocations = std::stol(memory::in_fresh_process([&] {
    const Seen seen = play.run(std::nullopt);
    return seen.outcome == text_of(expected.deed.undisturbed) ? std::to_string(play.allocations())
                                                              : "0 because of " + seen.outcome;
  }));
  ASSERT_GT(allocations, 100);
  ASSERT_NE(expected.before, expected.after);
  int cases = 0;
  for (const auto length : {Shortage::Length::once, Shortage::Length::from_then_on})
    for (const long first : chosen(allocations)) {
      play.company().go_back();
      ++cases;
      EXPECT_EQ(memory::in_fresh_process([&] {
                  return fault_of(play, expected, {first, length});
                }),
                "")
          << "allocation " << first << (length == Shortage::Length::once ? "" : " and all after it");
    }
  std::cout << "cases: " << cases << " of " << 2 * allocations << '\n';
}

}  // namespace
}  // namespace tallyra
