#include "tests/transcript/records/record_stage.h"

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
  stage.fails("<GetUpdateSQL", Error(-2147217900, "bad"));
  EXPECT_EQ(play("Update"), trapped(-2147217900, "bad"));
  EXPECT_EQ(stage.database_calls(), open_for_writing() + opened(record.structure) + "R1.Close\n" +
                                        (record.update_in_transaction ? "C1.BeginTrans\n" : "") +
                                        "C1.Execute <GetUpdateSQL " + record.table + ">" + record.condition +
                                        " | -1 ! bad\n");
}

}  // namespace
}  // namespace tallyra::records
