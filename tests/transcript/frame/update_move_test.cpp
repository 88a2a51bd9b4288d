#include "tests/transcript/frame/record_script.h"

// Changing a row with the right to change every row.
namespace tallyra::records {
namespace {

class RecordUpdate : public RecordTest {};
TALLYRA_ON_RECORD_CLASSES(RecordUpdate, true);

TEST_P(RecordUpdate, WithTheRightNobodyAsksWhoOwnsTheRow) {
  grant_everything();
  EXPECT_EQ(play("Update"), done);
  EXPECT_EQ(stage.database_calls(), open_for_writing() + update_calls());
  EXPECT_TRUE(stage.rights_calls().ends_with(asked("CanUpdate") + built("GetUpdateSQL")))
      << stage.rights_calls();
  EXPECT_EQ(stage.transcript().find("Owner"), std::string::npos);
}

TEST_P(RecordUpdate, ABuilderErrorIsPassedOnWithEverythingClosed) {
  grant_everything();
  stage.set("rights.ErrNumber", 77).set("rights.ErrDescription", "no such column");
  EXPECT_EQ(play("Update"), trapped(77, "no such column"));
  EXPECT_EQ(stage.database_calls(), open_for_writing() + opened(record.structure) + "R1.Close\nC1.Close\n");
}

TEST_P(RecordUpdate, TheBuilderMayReplaceTheCollections) {
  grant_everything();
  const Fields other{{"OTHER", 1}};
  stage.set("rights.replaces 1", other.names).set("rights.replaces 2", other.values);
  EXPECT_EQ(play("Update"), done);
  EXPECT_EQ(fields.text(), "OTHER=1");
}

TEST_P(RecordUpdate, AFailedStatementIsLeftToTheReleasedConnection) {
  grant_everything();
  stage.fails("<GetUpdateSQL", Error(-2147217900, "locked"));
  EXPECT_EQ(play("Update"), trapped(-2147217900, "locked"));
  EXPECT_EQ(stage.database_calls(), failing_at("C1.Execute", open_for_writing() + update_calls()));
}

class RecordUpdateInTransaction : public RecordUpdate {};
TALLYRA_ON_RECORD_CLASSES(RecordUpdateInTransaction, each.update_in_transaction);

TEST_P(RecordUpdateInTransaction, AFailedTransactionIsLeftToTheReleasedConnection) {
  for (const char* call : {"C1.BeginTrans", "C1.CommitTrans"}) {
    Stage each(GetParam().kind);
    grant_everything(each);
    each.fails(call, Error(-2147217900, "locked"));
    EXPECT_EQ(play(client(each), "Update"), trapped(-2147217900, "locked")) << call;
    EXPECT_EQ(each.database_calls(), failing_at(call, open_for_writing() + update_calls()));
  }
}

}  // namespace
}  // namespace tallyra::records
