#include "automation/convert.h"
#include "tests/unit/standins/ado/postgresql/scratch_server.h"

// What a transaction on the server keeps, and that nothing is called committed that is not.
namespace tallyra::standins::ado::test {
namespace {

constexpr std::int32_t unspecified = -2147467259;

class PostgresqlTransactionTest : public ScratchServer {
 protected:
  PostgresqlTransactionTest()
      : ScratchServer({"CREATE TABLE T(A integer PRIMARY KEY, B double precision)",
                       "CREATE TABLE P(A integer)",
                       "CREATE TABLE L(A integer CONSTRAINT LATE UNIQUE DEFERRABLE INITIALLY DEFERRED)"}) {}

  void insert(int number) const {
    execute(connection, "Insert Into T(A,B) Values(" + std::to_string(number) + ",0.5)");
  }
  std::string stored() const {
    return remaining(open_recordset(open_connection(), "Select A From T Order By A"), 0);
  }
  std::int32_t error_in(std::string_view sql) const {
    return error_of([&] { execute(connection, sql); });
  }

  Object connection = open_connection();
};

constexpr std::string_view failures[] = {
    "Insert Into T(A,B) Values(1,0.5)",
    "Insert Into T(A,B) Values('x',0.5)",
    "Selekt 1",
    "Select 1/0",
    "Select * From NOTABLE",
    "Update T Set A=A/0",
    "Insert Into T Values(1",
};

TEST_F(PostgresqlTransactionTest, AFailedStatementLeavesTheOthers) {
  for (const std::string_view failure : failures) {
    SCOPED_TRACE(failure);
    execute(connection, "Delete From T");
    insert(1);
    connection.call("BeginTrans");
    insert(2);
    EXPECT_NE(error_in(failure), 0);
    insert(3);
    insert(4);
    EXPECT_NE(error_in(failure), 0);
    EXPECT_NE(error_in(failure), 0);
    execute(connection, "Update T Set B=2 Where A=3");
    insert(5);
    EXPECT_NE(error_in(failure), 0);
    EXPECT_EQ(scalar(connection, "Select Count(*) From T"), Value(5));
    connection.call("CommitTrans");
    EXPECT_EQ(stored(), "1 2 3 4 5");
    EXPECT_EQ(scalar(connection, "Select B From T Where A=3"), Value(2.0));
  }
}

TEST_F(PostgresqlTransactionTest, AFailedFirstStatementLeavesTheTransaction) {
  insert(1);
  for (const std::string_view failure : failures) {
    connection.call("BeginTrans");
    EXPECT_NE(error_in(failure), 0) << failure;
    insert(7);
    connection.call("RollbackTrans");
    EXPECT_EQ(stored(), "1") << failure;
  }
}

TEST_F(PostgresqlTransactionTest, WhateverTheNumberOfRowsBeforeIt) {
  for (const int rows : {1, 127, 128, 129, 300}) {
    SCOPED_TRACE(rows);
    execute(connection, "Delete From T");
    connection.call("BeginTrans");
    for (int i = 1; i <= rows; ++i) insert(i);
    EXPECT_NE(error_in("Insert Into T(A,B) Values(1,9)"), 0);
    insert(1000);
    EXPECT_NE(error_in("nonsense"), 0);
    connection.call("CommitTrans");
    EXPECT_EQ(scalar(connection, "Select Count(*) From T"), Value(rows + 1));
    EXPECT_EQ(scalar(connection, "Select Sum(B) From T"), Value((rows + 1) * 0.5));
  }
}

TEST_F(PostgresqlTransactionTest, WhatAStatementDidThatFailsLaterIsNotDoneTwice) {
  execute(connection, "Create Sequence S");
  connection.call("BeginTrans");
  insert(1);
  EXPECT_EQ(scalar(connection, "Select nextval('S')"), Value(1));
  EXPECT_NE(error_in("nonsense"), 0);
  execute(connection, "Update T Set B=B+1");
  EXPECT_NE(error_in("nonsense"), 0);
  EXPECT_NE(error_in("nonsense"), 0);
  connection.call("CommitTrans");
  EXPECT_EQ(scalar(connection, "Select B From T"), Value(1.5));
  EXPECT_EQ(scalar(connection, "Select nextval('S')"), Value(2));
}

TEST_F(PostgresqlTransactionTest, ACommitThatTheServerRefusesIsAnError) {
  execute(connection, "Insert Into L Values(1)");
  connection.call("BeginTrans");
  execute(connection, "Insert Into L Values(1)");
  EXPECT_EQ(error_of([&] { connection.call("CommitTrans"); }), -2147217873);
  EXPECT_EQ(error_of([&] { connection.call("CommitTrans"); }), unspecified) << "again";
  EXPECT_EQ(error_in("Insert Into T Values(1,1)"), unspecified) << "it would stand by itself";
  connection.call("RollbackTrans");
  insert(5);
  EXPECT_EQ(stored(), "5");
}

// Which the server checks only as it commits, behind the end of the statement.
TEST_F(PostgresqlTransactionTest, AStatementByItselfThatTheServerRefusesToCommitFails) {
  for (int i = 0; i < 4; ++i) EXPECT_EQ(error_in("Insert Into L Values(1)"), i == 0 ? 0 : -2147217873) << i;
  EXPECT_EQ(error_in("Insert Into L Values(2),(2)"), -2147217873);
  EXPECT_EQ(scalar(connection, "Select Count(*) From L"), Value(1)) << "the connection lives";
}

TEST_F(PostgresqlTransactionTest, ACommitWithoutAConnectionIsAnError) {
  connection.call("BeginTrans");
  insert(1);
  server().administer(database(),
                      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename='tallyra'");
  EXPECT_EQ(error_of([&] { connection.call("CommitTrans"); }), unspecified);
  connection.call("RollbackTrans");
  EXPECT_EQ(stored(), "");
}

TEST_F(PostgresqlTransactionTest, ACommitAfterAStatementThatToldTheLossIsAnError) {
  connection.call("BeginTrans");
  insert(1);
  server().administer(database(),
                      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename='tallyra'");
  EXPECT_EQ(error_in("Insert Into T Values(2,1)"), unspecified);
  EXPECT_EQ(error_in("Insert Into T Values(3,1)"), unspecified);
  EXPECT_EQ(error_of([&] { connection.call("CommitTrans"); }), unspecified);
  connection.call("RollbackTrans");
  EXPECT_EQ(error_in("Insert Into T Values(4,1)"), unspecified) << "it does not connect again";
  EXPECT_EQ(error_of([&] { connection.call("BeginTrans"); }), unspecified);
  EXPECT_EQ(stored(), "");
}

TEST_F(PostgresqlTransactionTest, WordsThatEndItAreRefusedInside) {
  connection.call("BeginTrans");
  insert(1);
  for (const char* const sql :
       {"Commit", "End", "Rollback", "Abort", "Begin", "Start Transaction", "/* in disguise */ Commit",
        "/**/Rollback And Chain", "-- in disguise\nCommit And Chain"})
    EXPECT_EQ(error_in(sql), -2147217900) << sql;
  connection.call("CommitTrans");
  EXPECT_EQ(stored(), "1");
}

TEST_F(PostgresqlTransactionTest, BegunAsAStatementItIsProtectedToo) {
  execute(connection, "BEGIN");
  insert(1);
  EXPECT_NE(error_in("nonsense"), 0);
  insert(2);
  EXPECT_NE(error_in("Insert Into T(A,B) Values(1,9)"), 0);
  execute(connection, "COMMIT");
  EXPECT_EQ(stored(), "1 2");
  execute(connection, "BEGIN");
  EXPECT_EQ(error_of([&] { connection.call("BeginTrans"); }), -2147168237);
  execute(connection, "Insert Into L Values(1)");
  execute(connection, "Insert Into L Values(1)");
  EXPECT_NE(error_in("COMMIT"), 0);
  EXPECT_EQ(scalar(connection, "Select Count(*) From L"), Value(0));
}

// What a client has read of its own work stays as it was read.
TEST_F(PostgresqlTransactionTest, AFailedStatementDoesNotDoTheFirstOneAgain) {
  execute(connection, "Create Table S(ID serial, A integer)");
  connection.call("BeginTrans");
  execute(connection, "Insert Into S(A) Values(7)");
  const Value number = scalar(connection, "Select Max(ID) From S");
  EXPECT_NE(error_in("Select 1/0"), 0);
  EXPECT_EQ(scalar(connection, "Select Max(ID) From S"), number);
  connection.call("CommitTrans");
  EXPECT_EQ(scalar(connection, "Select Max(ID) From S"), number);
}

TEST_F(PostgresqlTransactionTest, SavepointsOfTheClientWork) {
  connection.call("BeginTrans");
  insert(1);
  execute(connection, "Savepoint MINE");
  insert(2);
  EXPECT_NE(error_in("nonsense"), 0);
  insert(3);
  execute(connection, "Rollback To MINE");
  insert(4);
  EXPECT_NE(error_in("nonsense"), 0);
  execute(connection, "Release MINE");
  insert(5);
  connection.call("CommitTrans");
  EXPECT_EQ(stored(), "1 4 5");
}

TEST_F(PostgresqlTransactionTest, ReleasedInsideItDiscardsWhatItDid) {
  {
    const Object other = open_connection();
    other.call("BeginTrans");
    execute(other, "Insert Into T Values(1,1)");
  }
  EXPECT_EQ(stored(), "");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
