#include "tests/transcript/transactions/writing_methods.h"

// What holds of the owner test wherever CTranHead and CTranDetail make it.
namespace tallyra::transactions_test {
namespace {

std::vector<WritingMethod> owners_methods() {
  std::vector<WritingMethod> methods = writing_methods();
  std::erase_if(methods, [](const WritingMethod& method) { return method.owner_query.empty(); });
  return methods;
}

Outcome play(const WritingMethod& method, Stage& stage) {
  Fields fields{{"QTY", 5}};
  return method.play(client_for(method, stage), fields);
}

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
  for (const auto& method : owners_methods())
    for (const auto& [user, owner, outcome] : rows) {
      Stage stage;
      stage.user = user;
      stage.set("Owner", 1).finds(method.owner_query, {{"ADDBY"}, {{owner}}});
      EXPECT_EQ(play(method, stage), outcome)
          << method.name << " of '" << user << "' for " << stage::shown(owner);
      const bool written = stage.transcript().find("Execute") != std::string::npos;
      EXPECT_EQ(written, outcome == done) << method.name;
      EXPECT_EQ(stage.database_calls().ends_with("R1.Close\nC1.Close\n"), !written) << stage.database_calls();
    }
}

TEST(Ownership, ThatCannotBeFoundOutIsNotRolledBack) {
  for (const auto& method : owners_methods())
    for (const char* failing : {"C1.Open", "R1.CursorLocation", "R1.Open", "R1.EOF", "(ADDBY)", "R1.Close"}) {
      Stage stage;
      stage.set("Owner", 1).finds(method.owner_query, {{"ADDBY"}, {{"TESTER"}}});
      stage.fails(failing, Error(-2147217865, "gone"));
      EXPECT_EQ(play(method, stage), trapped(-2147217865, "gone")) << method.name;
      EXPECT_TRUE(stage.database_calls().ends_with(" ! gone\n")) << method.name << stage.database_calls();
    }
}

TEST(Ownership, OfWhatIsNotThereIsAnybodys) {
  for (const auto& method : owners_methods()) {
    Stage stage;
    stage.set("Owner", 1);
    EXPECT_EQ(play(method, stage), done) << method.name;
    EXPECT_TRUE(stage.database_calls().starts_with(opened + asked(method.owner_query) + "C1.State\n"))
        << stage.database_calls();
  }
}

TEST(Ownership, IsOnlyAskedOfWhoLacksTheRight) {
  for (const auto& method : owners_methods()) {
    Stage stage;
    stage.set("Owner", 1).set("CanUpdate", 1).set("CanDelete", 1);
    EXPECT_EQ(play(method, stage), done) << method.name;
    EXPECT_EQ(stage.transcript().find("Owner"), std::string::npos) << method.name;
    EXPECT_EQ(stage.transcript().find("ADDBY"), std::string::npos) << method.name;
  }
}

}  // namespace
}  // namespace tallyra::transactions_test
