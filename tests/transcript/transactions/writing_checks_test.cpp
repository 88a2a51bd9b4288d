#include "tests/transcript/transactions/writing_methods.h"

// What every writing method checks before it writes.
namespace tallyra::transactions_test {
namespace {

class WritingChecks : public testing::TestWithParam<const char*> {
 protected:
  Fields fields{{"QTY", 5}};
};
TALLYRA_ON_BOTH_KINDS(WritingChecks);

TEST_P(WritingChecks, TestTheCollectionsBeforeAnyRight) {
  Fields none;
  Fields surplus_name{{"QTY", 5}};
  Fields::add(surplus_name.names, "SURPLUS");
  Fields surplus_value{{"QTY", 5}};
  Fields::add(surplus_value.values, 6);
  for (const auto& method : writing_methods()) {
    if (!method.takes_fields) continue;
    Stage stage(GetParam());
    const Object object = client_for(method, stage);
    method.play(object, none);  // sets the collaborators up
    for (Fields* each : {&none, &surplus_name, &surplus_value}) {
      stage.clear();
      EXPECT_EQ(method.play(object, *each), refused(10000002)) << method.name;
      EXPECT_EQ(stage.database_calls() + stage.rights_calls(), "") << method.name;
    }
  }
}

TEST_P(WritingChecks, TakeOnlyTheNumberOneForARight) {
  for (const auto& method : writing_methods())
    for (const Value& right : no_rights) {
      const bool owners_may = !method.owner_query.empty();
      Stage stage(GetParam());
      stage.set(method.right, right).set("Owner", owners_may ? right : Value(1));
      EXPECT_EQ(method.play(client_for(method, stage), fields), refused(10000016))
          << method.name << " " << stage::shown(right);
      EXPECT_EQ(stage.database_calls(), "") << method.name;
      EXPECT_EQ(stage.transcript().find("rights.Owner") != std::string::npos, owners_may) << method.name;
    }
}

TEST_P(WritingChecks, CopyABuilderErrorAndExecuteNothing) {
  for (const auto& method : writing_methods()) {
    if (!method.takes_fields) continue;
    Stage stage(GetParam());
    stage.set(method.right, 1).set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
    EXPECT_EQ(method.play(client_for(method, stage), fields), trapped(77, "no such column")) << method.name;
    EXPECT_TRUE(stage.database_calls().ends_with(" | C1 3 1 -1\nR1.Close\nC1.Close\n")) << method.name;
    for (const char* call : {"Execute", "BeginTrans"})
      EXPECT_EQ(stage.transcript().find(call), std::string::npos) << method.name;
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
