#include "tests/transcript/frame/record_script.h"

// Deleting by key, in a transaction.
namespace tallyra::records {
namespace {

class RecordDelete : public RecordTest {};
TALLYRA_ON_RECORD_CLASSES(RecordDelete, true);

TEST_P(RecordDelete, ItRunsInATransaction) {
  stage.set("CanDelete", 1);
  EXPECT_EQ(play("Delete"), done);
  EXPECT_EQ(stage.database_calls(), open_for_writing() + delete_calls());
  EXPECT_TRUE(stage.rights_calls().ends_with(asked("CanDelete")));
}

TEST_P(RecordDelete, AFailedTransactionIsRolledBackOrLeftToTheReleasedConnection) {
  std::vector<std::string> calls{"C1.BeginTrans", "C1.CommitTrans"};
  for (const auto& removal : record.removals) calls.push_back("C1.Execute " + removal);
  for (const auto& call : calls) {
    Stage each(GetParam().kind);
    each.set("CanDelete", 1).fails(call, Error(-2147467259, "locked"));
    EXPECT_EQ(play(client(each), "Delete"), trapped(-2147467259, "locked")) << call;
    EXPECT_EQ(each.database_calls(), failing_at(call, open_for_writing() + delete_calls()) +
                                         (record.delete_rolls_back ? "C1.RollbackTrans\nC1.Close\n" : ""));
  }
}

TEST_P(RecordDelete, AFailingOpenRollsNothingBack) {
  stage.set("CanDelete", 1).fails(".Open", Error(-2147467259, "unreachable"));
  EXPECT_EQ(play("Delete"), trapped(-2147467259, "unreachable"));
  EXPECT_EQ(stage.database_calls(),
            std::string(record.opens_again ? "" : "C1.State\n") + "C1.Open 'DSN=x' '' '' -1 ! unreachable\n");
}

class RollingBackDelete : public RecordDelete {};
TALLYRA_ON_RECORD_CLASSES(RollingBackDelete, each.delete_rolls_back);

TEST_P(RollingBackDelete, ARollbackThatFailsTooLeavesTheFirstError) {
  stage.set("CanDelete", 1).fails("Execute", Error(-2147217900, "locked")).fails("RollbackTrans", Error(5));
  EXPECT_EQ(play("Delete"), trapped(-2147217900, "locked"));
  EXPECT_NE(stage.database_calls().find("RollbackTrans"), std::string::npos);
}

}  // namespace
}  // namespace tallyra::records
