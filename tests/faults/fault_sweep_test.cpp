#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>

#include "server/class_table.h"
#include "tests/faults/scene.h"
#include "tests/support/outcome.h"

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

// A scene that nothing disturbs ends so.
bool undisturbed(const Scene& scene, const Outcome& outcome) {
  return scene.reported ? outcome == *scene.reported : outcome.result == 100;
}

// The methods that roll back, and the call from which on, failed or not, an error makes them. Those that are
// not here leave what was not committed to the release of the connection.
const std::map<std::string, std::string> rolls_back_from{
    {"CRevAddr.Delete", "BeginTrans"},
    {"CSTKController.Delete", "BeginTrans"},
    {"CStkShipNote.Delete", "BeginTrans"},
    {"CStockClose.Delete", "BeginTrans"},
    {"CCheckDetail.Delete", "BeginTrans"},
    {"CTranHead.Delete", "BeginTrans"},
    {"CTranDetail.Delete", "BeginTrans"},
    {"CTranDetail.InsertRTN", "BeginTrans"},
    // With the finished statement, so one call earlier.
    {"CTranDetail.UpdateRTN", "rights.ErrNumber\nR1.Close"},
};

bool has_to_roll_back(const Scene& scene, const std::string& transcript) {
  const auto from = rolls_back_from.find(scene.class_name + "." + scene.member);
  return from != rolls_back_from.end() && transcript.find(from->second) != std::string::npos;
}

struct Entries {
  std::int32_t names = 1;
  std::int32_t values = 1;
};

// Whether the collections hold their entry of before, then as many names as values or one more, and no less
// than when an earlier call failed.
bool begins_with_what_it_was(const Fields& fields, Entries& at_earlier_failure) {
  const auto count = [](const automation::Value& list) {
    return automation::to_int32(automation::to_object(list).get("Count"));
  };
  const Entries before = std::exchange(at_earlier_failure, {count(fields.names), count(fields.values)});
  const auto [names, values] = at_earlier_failure;
  return fields.text().starts_with("COLUMN=1") && names >= before.names && values >= before.values &&
         (names == values || names == values + 1);
}

TEST_P(FaultSweep, TheErrorComesBackRolledBackWhereDueNothingLeaksAndTheNextCallSucceeds) {
  const Scene& scene = GetParam();
  bool failed = true;
  Entries entries;
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
      EXPECT_TRUE(undisturbed(scene, outcome)) << "the scene itself must succeed: " << outcome;
      EXPECT_GT(step, 5);
      EXPECT_EQ(scene.appends, entries.values > 1) << "the last failures come behind the last field";
      break;
    }
    ASSERT_EQ(outcome, stage::trapped(injected.number(), "injected")) << stage.transcript();
    if (scene.appends)
      ASSERT_TRUE(begins_with_what_it_was(fields, entries)) << stage.transcript();
    else
      ASSERT_EQ(fields.text(), "COLUMN=1") << stage.transcript();
    ASSERT_LE(stage.alive(), collaborators) << stage.transcript();
    ASSERT_EQ(stage.transcript().find("RollbackTrans") != std::string::npos,
              has_to_roll_back(scene, stage.transcript()))
        << stage.transcript();
    ASSERT_TRUE(undisturbed(scene, stage::outcome_of(client, scene.call(client, fields))))
        << stage.transcript();
  }
}

// The closing-date guard lets error 438 out when an error strikes while its connection is open, after it has
// reported the error: CCheckHead as itself, CTranHead as a closed period.
struct Guard {
  const char* class_name;
  Outcome reported;
};

class GuardSweep : public testing::TestWithParam<Guard> {};

INSTANTIATE_TEST_SUITE_P(Classes, GuardSweep,
                         testing::Values(Guard{"CCheckHead", stage::trapped(injected.number(), "injected")},
                                         Guard{"CTranHead", stage::refused(10000112)}),
                         [](const auto& param) { return std::string(param.param.class_name); });

TEST_P(GuardSweep, TheErrorIsReportedAndRaisesWhileTheConnectionIsOpen) {
  bool failed = true;
  for (int step = 0; failed; ++step) {
    Stage stage;
    stage.finds("Select * From STKCLOSEHD Where CLOSEDT>=#2024/03/31#", {{"CLOSEDT"}, {{"a close"}}});
    // Another object of the thread has set the message library up.
    stage.client("CStkShipNote").call("Delete", "T1");
    const auto client = stage.client(GetParam().class_name);
    stage.clear();
    stage.fails_at(stage.steps() + step, injected);
    std::int32_t raised = 0;
    try {
      EXPECT_TRUE(client.call("ValidCloseDT", "2024/03/31").is_empty());
    } catch (const Error& error) {
      raised = error.number();
    }
    failed = stage.failed();
    const Outcome outcome = stage::outcome_of(client, 0);
    if (!failed) {
      EXPECT_EQ(outcome, stage::refused(10000112));
      EXPECT_EQ(raised, 0);
      EXPECT_GT(step, 5);
      break;
    }
    const auto tells = [&](const char* line) { return stage.transcript().find(line) != std::string::npos; };
    const bool open = tells("C2.Open 'DSN=x' '' '' -1\n") && !tells("C2.Close\n");
    ASSERT_EQ(outcome, GetParam().reported) << stage.transcript();
    ASSERT_EQ(raised, open ? 438 : 0) << stage.transcript();
    ASSERT_LE(stage.alive(), collaborators) << stage.transcript();
  }
}

TEST(FaultSweepScenes, CoverEveryMethodOfEveryClass) {
  std::set<std::string> swept;
  for (const auto& scene : faults::all_scenes()) swept.insert(scene.class_name + "." + scene.member);
  swept.merge(std::set<std::string>{"CCheckHead.ValidCloseDT", "CTranHead.ValidCloseDT"});
  swept.insert("CTranDetail.IssuedOrRtnQty");   // reports nothing; swept by itself
  swept.insert("CStkrptFuns.GetCheckBalance");  // asks for nothing, so that nothing can fail
  for (const auto& table : server::classes())
    for (const auto& member : table.members)
      if (member.kind == server::MemberKind::method) {
        const std::string name = std::string(table.name) + "." + std::string(member.name);
        EXPECT_TRUE(swept.contains(name)) << name;
      }
}

bool asks_for_owner(const Scene& scene, Stage& stage) {
  Fields fields{{"COLUMN", 1}};
  scene.call(stage.client(scene.class_name), fields);
  return stage.rights_calls().find("rights.Owner\n") != std::string::npos;
}

TEST(FaultSweepScenes, CoverTheOwnersWayIntoEveryMethodThatHasOne) {
  std::set<std::string> with_way, swept;
  for (const auto& scene : faults::all_scenes()) {
    const std::string name = scene.class_name + "." + scene.member;
    Stage without_rights;
    scene.prepare(without_rights);
    for (const char* right : {"CanInsert", "CanUpdate", "CanDelete", "CanApproved", "CanUnapproved", "Owner"})
      without_rights.set(right, 0);
    if (asks_for_owner(scene, without_rights)) with_way.insert(name);
    Stage prepared;
    scene.prepare(prepared);
    if (scene.branch == "owner" && asks_for_owner(scene, prepared)) swept.insert(name);
  }
  EXPECT_GE(with_way.size(), 15U);
  EXPECT_EQ(with_way, swept);
}

}  // namespace
}  // namespace tallyra
