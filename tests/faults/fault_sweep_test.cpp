#include <gtest/gtest.h>

#include <set>

#include "server/class_table.h"
#include "tests/faults/scene.h"
#include "tests/transcript/stage/outcome.h"

// Every call to the outside fails once, in turn, in every method.
namespace tallyra {
namespace {

using automation::Error;
using faults::Scene;
using stage::Fields;
using stage::Outcome;
using stage::Stage;

class FaultSweep : public testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Methods, FaultSweep, testing::ValuesIn(faults::all_scenes()), [](const auto& param) {
  return param.param.class_name + "_" + param.param.member + (param.param.branch.empty() ? "" : "_") +
         param.param.branch;
});

const Error injected(-2147217887, "injected");
constexpr int collaborators = 4;

TEST_P(FaultSweep, TheErrorComesBackNothingLeaksAndTheNextCallSucceeds) {
  const Scene& scene = GetParam();
  bool failed = true;
  for (int step = 0; failed; ++step) {
    Stage stage;
    scene.prepare(stage);
    Fields fields{{"COLUMN", 1}};
    const auto client = stage.client(scene.class_name);
    stage.fails_at(step, injected);
    Outcome outcome{};
    ASSERT_NO_THROW(outcome = stage::outcome_of(client, scene.call(client, fields))) << stage.transcript();
    failed = stage.failed();
    if (!failed) {
      EXPECT_EQ(outcome.result, 100) << "the scene itself must succeed: " << outcome.description;
      EXPECT_GT(step, 5);
      break;
    }
    ASSERT_EQ(outcome, stage::trapped(injected.number(), "injected")) << stage.transcript();
    ASSERT_EQ(fields.text(), "COLUMN=1") << stage.transcript();
    ASSERT_LE(stage.alive(), collaborators) << stage.transcript();
    ASSERT_EQ(stage::outcome_of(client, scene.call(client, fields)).result, 100) << stage.transcript();
  }
}

TEST(FaultSweepScenes, CoverEveryMethodOfEveryClass) {
  std::set<std::string> swept;
  for (const auto& scene : faults::all_scenes()) swept.insert(scene.class_name + "." + scene.member);
  for (const auto& table : server::classes())
    for (const auto& member : table.members)
      if (member.kind == server::MemberKind::method) {
        const std::string name = std::string(table.name) + "." + std::string(member.name);
        EXPECT_TRUE(swept.contains(name)) << name;
      }
}

}  // namespace
}  // namespace tallyra
