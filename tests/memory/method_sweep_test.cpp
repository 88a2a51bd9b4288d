#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <sstream>

#include "tests/memory/fresh_process.h"
#include "tests/memory/method_play.h"

// Every allocation of every method fails once, alone and with all that follow it until the call has returned,
// each time as the first error of a fresh process.
namespace tallyra {
namespace {

using faults::Scene;
using memory::MethodPlay;
using memory::Shortage;

class MemorySweep : public testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Methods, MemorySweep, testing::ValuesIn(faults::all_scenes()),
                         [](const auto& param) {
                           return param.param.class_name + "_" + param.param.member +
                                  (param.param.branch.empty() ? "" : "_") + param.param.branch;
                         });

MethodPlay::Seen undisturbed(MethodPlay& play) {
  MethodPlay::Seen seen;
  std::istringstream text(memory::in_fresh_process([&] {
    const auto played = play.play(std::nullopt);
    return std::to_string(played.allocations) + '\n' + played.outcome + '\n' + played.fields + '\n' +
           played.committed;
  }));
  std::string count;
  std::getline(text, count);
  std::getline(text, seen.outcome);
  std::getline(text, seen.fields);
  seen.committed.assign(std::istreambuf_iterator<char>(text), {});
  seen.allocations = std::stol(count);
  return seen;
}

TEST_P(MemorySweep, EndsInErrorSevenWithNothingStoredAndTheNextCallSucceeds) {
  const Scene& scene = GetParam();
  MethodPlay play(scene, [](stage::Stage& stage, const Scene& of) { return stage.client(of.class_name); });
  const auto expected = undisturbed(play);
  ASSERT_GT(expected.allocations, 5) << expected.outcome;
  std::map<std::string, int> verdicts;
  for (const auto length : {Shortage::Length::once, Shortage::Length::from_then_on})
    for (long first = 1; first <= expected.allocations; ++first) {
      const std::string verdict = memory::in_fresh_process([&] {
        return play.verdict(expected, {first, length});
      });
      ++verdicts[verdict];
      EXPECT_TRUE(verdict == "memory" || verdict == "same")
          << "allocation " << first << (length == Shortage::Length::once ? "" : " and all after it") << ": "
          << verdict;
    }
  std::cout << "cases: " << 2 * expected.allocations
            << ", of these did without the memory: " << verdicts["same"] << '\n';
}

}  // namespace
}  // namespace tallyra
