#include <functional>

#include "tests/transcript/transactions/transaction_stage.h"

// What holds of the owner test wherever CTranHead and CTranDetail make it.
namespace tallyra::transactions_test {
namespace {

struct OwnersMethod {
  const char* name;
  const char* class_name;
  std::string owner_query;
  std::function<Outcome(const Object&)> play;
};

const std::string line_query =
    "Select ADDBY from STKTRANDT WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND "
    "STKTRANDT.SN=7";

const OwnersMethod methods[] = {
    {"header's Update", "CTranHead",
     "Select ADDBY from STKTRANHD WHERE STKTRANHD.TRANNO='T1' AND STKTRANHD.TRANTYPE='X'",
     [](const Object& object) {
       Fields fields{{"QTY", 5}};
       return update_head(object, "T1", "X", fields);
     }},
    {"header's Delete", "CTranHead", "Select ADDBY from STKTRANHD WHERE TRANNO='T1'",
     [](const Object& object) { return delete_head(object, "T1", "X"); }},
    {"line's Update", "CTranDetail", line_query,
     [](const Object& object) {
       Fields fields{{"QTY", 5}};
       return write_line(object, "Update", {.number = 7}, fields);
     }},
    {"line's Delete", "CTranDetail", line_query,
     [](const Object& object) { return delete_line(object, {.number = 7}); }},
    {"UpdateRTN", "CTranDetail", "Select ADDBY from STKTRANDT WHERE TRANNO='T1'",
     [](const Object& object) {
       Fields fields{{"SN", "no number"}};
       const Outcome outcome = update_return(object, "T1", 7, fields);
       // Whether the new line number is one is asked once the owner is known.
       return outcome == trapped(13, "Type mismatch") ? done : outcome;
     }},
};

TEST(Ownership, IsComparedWithoutTheBlanksAroundBothNames) {
  const struct {
    std::string user;
    Value owner;
    Outcome outcome;
  } rows[] = {{"TESTER", " TESTER  ", done},
              {"  TESTER ", "TESTER", done},
              {" TESTER ", "  TESTER", done},
              {"A B", "A B ", done},
              {"A B", "AB", refused(10000016)},
              {"TESTER", "tester", refused(10000016)},
              {"TESTER", "\tTESTER", refused(10000016)},
              {"TESTER", "", refused(10000016)},
              {"TESTER", Null{}, refused(10000016)},
              // Nobody's row is the nameless user's.
              {"", Null{}, done},
              {"  ", "", done},
              {"7", 7, done}};
  for (const auto& method : methods)
    for (const auto& [user, owner, outcome] : rows) {
      Stage stage;
      stage.user = user;
      stage.set("Owner", 1).finds(method.owner_query, {{"ADDBY"}, {{owner}}});
      EXPECT_EQ(method.play(stage.client(method.class_name)), outcome)
          << method.name << " of '" << user << "' for " << stage::shown(owner);
    }
}

TEST(Ownership, ThatCannotBeFoundOutIsNotRolledBack) {
  for (const auto& method : methods)
    for (const char* failing : {"C1.Open", "R1.CursorLocation", "R1.Open", "R1.EOF", "(ADDBY)", "R1.Close"}) {
      Stage stage;
      stage.set("Owner", 1).finds(method.owner_query, {{"ADDBY"}, {{"TESTER"}}});
      stage.fails(failing, Error(-2147217865, "gone"));
      EXPECT_EQ(method.play(stage.client(method.class_name)), trapped(-2147217865, "gone")) << method.name;
      EXPECT_TRUE(stage.database_calls().ends_with(" ! gone\n")) << method.name << stage.database_calls();
    }
}

TEST(Ownership, IsOnlyAskedOfWhoLacksTheRight) {
  for (const auto& method : methods) {
    Stage stage;
    stage.set("Owner", 1).set("CanUpdate", 1).set("CanDelete", 1);
    EXPECT_EQ(method.play(stage.client(method.class_name)), done) << method.name;
    EXPECT_EQ(stage.transcript().find("Owner"), std::string::npos) << method.name;
    EXPECT_EQ(stage.transcript().find("ADDBY"), std::string::npos) << method.name;
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
