#include "automation/create.h"
#include "tests/transcript/frame/record_script.h"

// Inserting a row under a key that is free.
namespace tallyra::records {
namespace {

class RecordInsert : public RecordTest {};
TALLYRA_ON_RECORD_CLASSES(RecordInsert, each.inserts);

TEST_P(RecordInsert, TheStatementIsBuiltOnTheEmptyExistenceQuery) {
  grant_everything();
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(stage.database_calls(), open + insert_calls());
  EXPECT_TRUE(stage.rights_calls().ends_with(asked("CanInsert") + built("GetInsertSQL")))
      << stage.rights_calls();
}

TEST_P(RecordInsert, TheRightIsOneOrInSomeClassesAnythingAboveZero) {
  const Outcome above_zero = record.insert_wants_one ? refused(10000016) : done;
  const struct {
    Value right;
    Outcome outcome;
  } rows[] = {{1, done},
              {"1", done},
              {2, above_zero},
              {0.5, above_zero},
              {1.5, above_zero},
              {0, refused(10000016)},
              {-1, refused(10000016)},
              {Null{}, refused(10000016)},
              {true, refused(10000016)}};
  for (const auto& [right, outcome] : rows) {
    Stage each(GetParam().kind);
    let_insert_look_up(each);
    each.set("CanInsert", right);
    EXPECT_EQ(play(client(each), "Insert"), outcome) << stage::shown(right);
    if (outcome == done) continue;
    EXPECT_TRUE(each.rights_calls().ends_with(asked("CanInsert"))) << stage::shown(right);
    EXPECT_EQ(each.database_calls(), "") << stage::shown(right);
  }
}

TEST_P(RecordInsert, AnExistingKeyIsRefused) {
  grant_everything();
  stage.finds(record.key_query, {{"K"}, {{"taken"}}});
  EXPECT_EQ(play("Insert"), refused(10000004));
  EXPECT_EQ(stage.database_calls(), open + existence_test() + "C1.Close\n");
}

TEST_P(RecordInsert, ABuilderErrorIsPassedOnWithEverythingClosed) {
  grant_everything();
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(play("Insert"), trapped(77, "no such column"));
  EXPECT_EQ(stage.database_calls(), open + existence_test() + "C1.Close\n");
}

TEST_P(RecordInsert, ABuilderWithoutAnErrorNumberHasNoError) {
  grant_everything();
  for (const Value& number : {Value(Null{}), Value(), Value("0")}) {
    stage.set("rights.ErrNumber", number);
    EXPECT_EQ(play("Insert"), done) << stage::shown(number);
  }
}

TEST_P(RecordInsert, TheBuilderMayReplaceTheCollections) {
  grant_everything();
  const Fields other{{"OTHER", 1}};
  stage.set("rights.replaces 1", other.names).set("rights.replaces 2", other.values);
  EXPECT_EQ(play("Insert"), done);
  EXPECT_EQ(fields.text(), "OTHER=1");
}

TEST_P(RecordInsert, TheBuilderMayHandAnotherRecordsetBackButNothingElse) {
  grant_everything();
  for (const Value& replacement : {Value("text"), Value()}) {
    stage.set("rights.GetInsertSQL replaces 4", replacement);
    EXPECT_EQ(play("Insert"), trapped(13, "Type mismatch")) << stage::shown(replacement);
  }
  const Object other = automation::create("ADODB.Recordset");
  stage.set("rights.GetInsertSQL replaces 4", other);
  stage.clear();
  EXPECT_EQ(play("Insert"), trapped(3704, "Operation is not allowed when the object is closed."));
  EXPECT_TRUE(stage.database_calls().ends_with("R3.Close\n")) << stage.database_calls();
}

TEST_P(RecordInsert, AFailedStatementIsLeftToTheReleasedConnection) {
  grant_everything();
  stage.fails("<GetInsertSQL", Error(-2147217873, "locked"));
  EXPECT_EQ(play("Insert"), trapped(-2147217873, "locked"));
  EXPECT_EQ(stage.database_calls(), failing_at("C1.Execute", open + insert_calls()));
}

class RecordInsertInTransaction : public RecordInsert {};
TALLYRA_ON_RECORD_CLASSES(RecordInsertInTransaction, each.inserts&& each.insert_in_transaction);

TEST_P(RecordInsertInTransaction, AFailedTransactionIsLeftToTheReleasedConnection) {
  for (const char* call : {"C1.BeginTrans", "C1.CommitTrans"}) {
    Stage each(GetParam().kind);
    grant_everything(each);
    each.fails(call, Error(-2147217900, "locked"));
    EXPECT_EQ(play(client(each), "Insert"), trapped(-2147217900, "locked")) << call;
    EXPECT_EQ(each.database_calls(), failing_at(call, open + insert_calls()));
  }
}

}  // namespace
}  // namespace tallyra::records
