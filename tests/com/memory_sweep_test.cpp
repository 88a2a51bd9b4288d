#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "automation/com/com_proxy.h"
#include "automation/com/served_module.h"
#include "automation/com/text.h"
#include "tests/com/heap_blocks.h"
#include "tests/memory/method_play.h"

// Every method of every class as clients of the DLL call it, by name through the object's own interface, with
// allocations that fail on the whole way: in the dispatch, in the method and in the calls that it makes to
// objects of others. All of it lives in this program, so that its memory is the one that fails.
namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::com::ComProxy;
using automation::com::Pointer;
using faults::Scene;
using memory::MethodPlay;
using memory::Shortage;

Object through_com(stage::Stage& stage, const Scene& scene) {
  const std::wstring prog_id = automation::com::to_utf16("Tallyra." + scene.class_name);
  const auto& classes = automation::com::served_module().classes;
  const auto served =
      std::find_if(classes.begin(), classes.end(), [&](const auto& each) { return each.prog_id == prog_id; });
  EXPECT_NE(served, classes.end()) << scene.class_name;
  const Object object =
      automation::make_object<ComProxy>(automation::com::query<IDispatch>(served->make().get()));
  object.put("ConnectionString", stage.connection_string);
  object.put("UserID", stage.user);
  object.put("Language", "EN");
  object.put("SystemDatabase", "MSACCESS");
  return object;
}

// The first test, so that its error is the first of the program.
TEST(ComMemoryFirst, ErrorOfTheProgramIsErrorSeven) {
  const Scene scene = faults::all_scenes().front();
  MethodPlay play(scene, through_com);
  const auto seen = play.play(Shortage{20, Shortage::Length::from_then_on});
  ASSERT_GT(seen.failures, 0);
  EXPECT_EQ(seen.outcome, "0 / 7.000000 / Out of memory");
}

class ComMemorySweep : public testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Methods, ComMemorySweep, testing::ValuesIn(faults::all_scenes()),
                         [](const auto& param) {
                           return param.param.class_name + "_" + param.param.member +
                                  (param.param.branch.empty() ? "" : "_") + param.param.branch;
                         });

TEST_P(ComMemorySweep, EndsInErrorSevenWithNothingStoredOrLeakedAndTheNextCallSucceeds) {
  const Scene& scene = GetParam();
  const auto undisturbed = [&] { return MethodPlay(scene, through_com).play(std::nullopt); };
  // What is made once per program has been made then.
  undisturbed();
  const auto expected = undisturbed();
  std::map<std::string, int> verdicts;
  const auto fail_each = [&](Shortage::Length length) {
    for (long first = 1; first <= expected.allocations; ++first) {
      const std::string verdict = MethodPlay(scene, through_com).verdict(expected, {first, length});
      ++verdicts[verdict];
      EXPECT_TRUE(verdict == "memory" || verdict == "same")
          << "allocation " << first << (length == Shortage::Length::once ? "" : " and all after it") << ": "
          << verdict;
    }
  };
  fail_each(Shortage::Length::once);
  const long blocks = blocks_in_use();
  fail_each(Shortage::Length::from_then_on);
  EXPECT_LT(blocks_in_use() - blocks, 10) << "after " << expected.allocations << " calls";
  std::cout << "cases: " << 2 * expected.allocations
            << ", of these did without the memory: " << verdicts["same"] << '\n';
}

}  // namespace
}  // namespace tallyra::tests::com
