#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t no_transaction = -2147168242;
constexpr std::int32_t only_one_transaction = -2147168237;

class TransactionTest : public ScratchDatabase {
 protected:
  TransactionTest() { execute(connection, "create table T(A integer)"); }

  std::int32_t rows_seen_by_others() const {
    return number(scalar(open_connection(), "select count(*) from T"));
  }

  Object connection = open_connection();
};

TEST_F(TransactionTest, BeginReturnsTheNestingLevel) {
  EXPECT_EQ(connection.call("BeginTrans"), Value(1));
}

TEST_F(TransactionTest, CommitMakesTheRowsOthers) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  EXPECT_EQ(rows_seen_by_others(), 0);
  connection.call("CommitTrans");
  EXPECT_EQ(rows_seen_by_others(), 1);
}

TEST_F(TransactionTest, RollbackTakesTheRowsBack) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  connection.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(0));
}

TEST_F(TransactionTest, StatementsOutsideATransactionStandAtOnce) {
  execute(connection, "insert into T values(1)");
  EXPECT_EQ(rows_seen_by_others(), 1);
  connection.call("BeginTrans");
  execute(connection, "insert into T values(2)");
  connection.call("CommitTrans");
  execute(connection, "insert into T values(3)");
  EXPECT_EQ(rows_seen_by_others(), 3);
  connection.call("BeginTrans");
  connection.call("RollbackTrans");
  execute(connection, "insert into T values(4)");
  EXPECT_EQ(rows_seen_by_others(), 4);
}

TEST_F(TransactionTest, EndWithoutBeginIsAnError) {
  for (const char* member : {"CommitTrans", "RollbackTrans"}) {
    EXPECT_EQ(error_of([&] { connection.call(member); }), no_transaction) << member;
    connection.call("BeginTrans");
    connection.call(member);
    EXPECT_EQ(error_of([&] { connection.call(member); }), no_transaction) << member;
  }
}

TEST_F(TransactionTest, SecondBeginIsAnErrorAndTheFirstGoesOn) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  EXPECT_EQ(error_of([&] { connection.call("BeginTrans"); }), only_one_transaction);
  connection.call("CommitTrans");
  EXPECT_EQ(rows_seen_by_others(), 1);
}

TEST_F(TransactionTest, CloseInsideIsAnErrorAndEverythingStays) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  const Object rows = open_recordset(connection, "select A from T");
  EXPECT_EQ(error_of([&] { connection.call("Close"); }), 3246);
  EXPECT_EQ(connection.get("State"), Value(1));
  EXPECT_EQ(rows.get("State"), Value(1));
  connection.call("CommitTrans");
  connection.call("Close");
  EXPECT_EQ(rows_seen_by_others(), 1);
}

TEST_F(TransactionTest, AFailedStatementLeavesTheOthersInIt) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  EXPECT_NE(error_of([&] { execute(connection, "insert into NOSUCH values(1)"); }), 0);
  execute(connection, "insert into T values(2)");
  connection.call("CommitTrans");
  EXPECT_EQ(rows_seen_by_others(), 2);
}

TEST_F(TransactionTest, ReleasingTheConnectionDiscardsIt) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  connection = Object();
  const Object other = open_connection();
  EXPECT_EQ(scalar(other, "select count(*) from T"), Value(0));
  execute(other, "insert into T values(2)");  // and nothing is locked any more
}

TEST_F(TransactionTest, AnOpenRecordsetKeepsTheConnectionAndItsTransaction) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1)");
  Object rows = open_recordset(connection, "select A from T");
  connection = Object();
  EXPECT_EQ(remaining(rows, "A"), "1");
  EXPECT_EQ(rows_seen_by_others(), 0);
  rows = Object();
  EXPECT_EQ(rows_seen_by_others(), 0);
  execute(open_connection(), "insert into T values(2)");
}

TEST_F(TransactionTest, RecordsetsStayReadableOverTheEndOfIt) {
  connection.call("BeginTrans");
  execute(connection, "insert into T values(1),(2),(3)");
  const Object rows = open_recordset(connection, "select A from T order by A");
  rows.call("MoveNext");
  connection.call("CommitTrans");
  EXPECT_EQ(remaining(rows, "A"), "2 3");
}

TEST_F(TransactionTest, ALockedDatabaseFailsTheStatementOnly) {
  const Object other = open_connection();
  other.call("BeginTrans");
  execute(other, "insert into T values(1)");
  const auto insert = [&] { execute(connection, "insert into T values(2)"); };
  EXPECT_EQ(error_of(insert), -2147467259);
  EXPECT_EQ(description_of(insert), "database is locked");
  other.call("RollbackTrans");
  EXPECT_EQ(error_of(insert), 0);
  EXPECT_EQ(rows_seen_by_others(), 1);
}

// Who has read must be able to write, whatever others do in between.
TEST_F(TransactionTest, ItsFirstStatementKeepsOtherWritersOut) {
  const Object other = open_connection();
  const auto insert = [&] { execute(other, "insert into T values(2)"); };
  connection.call("BeginTrans");
  EXPECT_EQ(error_of(insert), 0) << "nothing has been done yet";
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1));
  EXPECT_EQ(description_of(insert), "database is locked");
  execute(connection, "insert into T values(1)");
  connection.call("CommitTrans");
  EXPECT_EQ(error_of(insert), 0);
  EXPECT_EQ(rows_seen_by_others(), 3);
}

TEST_F(TransactionTest, CanReadWhatCannotBeWritten) {
  execute(connection, "insert into T values(1)");
  execute(connection, "pragma query_only=1");
  connection.call("BeginTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1));
  EXPECT_EQ(description_of([&] { execute(connection, "insert into T values(2)"); }),
            "attempt to write a readonly database");
  connection.call("CommitTrans");
}

TEST_F(TransactionTest, ACommitThatFailsLeavesItOpen) {
  execute(connection, "insert into T values(1)");
  const Object reader = open_connection();
  execute(reader, "begin");
  // A reader in the middle of a transaction keeps the writer from committing.
  EXPECT_EQ(scalar(reader, "select count(*) from T"), Value(1));
  connection.call("BeginTrans");
  execute(connection, "insert into T values(2)");
  const std::int32_t failure = error_of([&] { connection.call("CommitTrans"); });
  execute(reader, "rollback");
  EXPECT_EQ(failure, -2147467259);
  EXPECT_EQ(error_of([&] { connection.call("Close"); }), 3246);
  connection.call("CommitTrans");
  EXPECT_EQ(rows_seen_by_others(), 2);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
