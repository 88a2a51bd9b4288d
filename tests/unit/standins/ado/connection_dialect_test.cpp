#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

// Statements in the component's dialects reach SQLite in its own words, with the date columns as the database
// itself declares them.
class DialectPassageTest : public ScratchDatabase {
 protected:
  DialectPassageTest() {
    execute(connection, "create table STKCLOSEHD(CLOSEDT timestamp, NOTE varchar(20))");
    execute(connection, "insert into STKCLOSEHD(CLOSEDT,NOTE) values('2024/02/29','2024/02/29')");
    execute(connection, "insert into STKCLOSEHD(CLOSEDT,NOTE) values(#2024/03/31#,'x')");
  }

  Object connection = open_connection();
};

TEST_F(DialectPassageTest, DatesAreWrittenInOneForm) {
  const Object rows = open_recordset(connection, "Select * From STKCLOSEHD Order By CLOSEDT", {3, 3});
  EXPECT_EQ(value(rows, "CLOSEDT"), Value(*automation::date_from_civil({2024, 2, 29})));
  EXPECT_EQ(value(rows, "NOTE"), Value("2024/02/29"));
  rows.call("MoveNext");
  EXPECT_EQ(value(rows, "CLOSEDT"), Value(*automation::date_from_civil({2024, 3, 31})));
}

TEST_F(DialectPassageTest, QueriesOfBothDialectsFindTheRow) {
  for (const std::string_view sql :
       {"Select top 1 * From STKCLOSEHD WHERE CLOSEDT='2024/03/31'",
        "Select Top 1 * From STKCLOSEHD WHERE CLOSEDT=#2024/03/31#",
        "Select Top 1 * From STKCLOSEHD Where CLOSEDT<'2024/04/01' Order By CLOSEDT DESC"}) {
    const Object rows = open_recordset(connection, sql, {3, 3});
    EXPECT_EQ(rows.get("RecordCount"), Value(1)) << sql;
    EXPECT_EQ(value(rows, "NOTE"), Value("x")) << sql;
  }
}

TEST_F(DialectPassageTest, ATextThatIsNoDateIsRefusedAtADateColumnAndNothingIsDone) {
  for (const std::string_view sql :
       {"Select * From STKCLOSEHD Where CLOSEDT>='2024/02/30'",
        "insert into STKCLOSEHD(CLOSEDT,NOTE) values('31/01/2024','x')", "update STKCLOSEHD set CLOSEDT='x'",
        "delete from STKCLOSEHD where CLOSEDT<'x'"}) {
    EXPECT_EQ(error_of([&] { execute(connection, sql); }), -2147217913) << sql;
    EXPECT_EQ(error_of([&] { open_recordset(connection, sql, {3, 3}); }), -2147217913) << sql;
  }
  try {
    execute(connection, "update STKCLOSEHD set CLOSEDT='it''s'");
    FAIL() << "no error";
  } catch (const automation::Error& error) {
    EXPECT_EQ(error.description(), "The text 'it''s' cannot be converted to a date");
  }
  EXPECT_EQ(scalar(connection, "select count(*) from STKCLOSEHD where CLOSEDT='2024/02/29'"), Value(1));
  EXPECT_EQ(scalar(connection, "select count(*) from STKCLOSEHD"), Value(2));
}

TEST_F(DialectPassageTest, ATextThatIsNoDateIsRefusedWithinATransactionAsWell) {
  connection.call("BeginTrans");
  for (const std::string_view sql :
       {"Select * From STKCLOSEHD Where CLOSEDT>='x'", "insert into STKCLOSEHD(CLOSEDT) values('x')",
        "update STKCLOSEHD set CLOSEDT='x'", "delete from STKCLOSEHD where CLOSEDT<'x'"})
    EXPECT_EQ(error_of([&] { execute(connection, sql); }), -2147217913) << sql;
  connection.call("CommitTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from STKCLOSEHD"), Value(2));
}

TEST_F(DialectPassageTest, ATableOfTheSameTransactionIsLookedUp) {
  connection.call("BeginTrans");
  execute(connection, "create table D(WHENDT timestamp)");
  execute(connection, "insert into D(WHENDT) values('2024/03/31')");
  execute(connection, "update D set WHENDT='2024/04/30' where WHENDT='2024/03/31'");
  EXPECT_EQ(scalar(connection, "select WHENDT from D"), Value(*automation::date_from_civil({2024, 4, 30})));
  connection.call("RollbackTrans");
  execute(connection, "create table D(WHENDT varchar(20))");
  execute(connection, "insert into D(WHENDT) values('2024/03/31')");
  EXPECT_EQ(scalar(connection, "select WHENDT from D"), Value("2024/03/31"));
}

TEST_F(DialectPassageTest, AccessDeletesRun) {
  Value affected;
  connection.call("Execute", "Delete * From STKCLOSEHD Where CLOSEDT=#2024/03/31#", automation::ref(affected),
                  -1);
  EXPECT_EQ(affected, Value(1));
}

TEST_F(DialectPassageTest, AChangedTableIsLookedUpAgain) {
  execute(connection, "create table D(WHENDT varchar(20))");
  execute(connection, "insert into D(WHENDT) values('2024/03/31')");
  EXPECT_EQ(scalar(connection, "select WHENDT from D"), Value("2024/03/31"));
  execute(connection, "drop table D");
  execute(connection, "create table D(WHENDT timestamp)");
  execute(connection, "insert into D(WHENDT) values('2024/03/31')");
  EXPECT_EQ(scalar(connection, "select WHENDT from D"), Value(*automation::date_from_civil({2024, 3, 31})));
}

TEST_F(DialectPassageTest, ATableIsLookedUpAgainBehindARollback) {
  for (const std::string_view change :
       {"drop table D", "alter table D rename to E", "alter table D rename column WHENDT to X"})
    for (const bool by_statement : {false, true}) {
      execute(connection, "create table D(WHENDT timestamp)");
      const auto store = [&] { execute(connection, "insert into D(WHENDT) values('2024/03/31')"); };
      by_statement ? execute(connection, "begin") : void(connection.call("BeginTrans"));
      execute(connection, change);
      EXPECT_NE(error_of(store), 0) << change;
      by_statement ? execute(connection, "rollback") : void(connection.call("RollbackTrans"));
      store();
      EXPECT_EQ(scalar(connection, "select substr(WHENDT,1,10) from D"), Value("2024-03-31")) << change;
      execute(connection, "drop table D");
    }
}

TEST_F(DialectPassageTest, ATableThatIsChangedBehindACommentIsLookedUpAgain) {
  for (const std::string comment : {"/* a */ ", "-- a\n"}) {
    EXPECT_NE(error_of([&] { execute(connection, "insert into D(WHENDT) values('2024/03/31')"); }), 0);
    execute(connection, comment + "create table D(WHENDT timestamp)");
    execute(connection, "insert into D(WHENDT) values('2024/03/31')");
    EXPECT_EQ(scalar(connection, "select substr(WHENDT,1,10) from D"), Value("2024-03-31")) << comment;
    execute(connection, comment + "drop table D");
  }
}

TEST_F(DialectPassageTest, ATableOfASimilarNameIsAnother) {
  execute(connection, "create table A_B(DT varchar(20))");
  execute(connection, "create table AXB(DT timestamp)");
  execute(connection, "insert into A_B(DT) values('2024/03/31')");
  EXPECT_EQ(scalar(connection, "select DT from A_B"), Value("2024/03/31"));
}

TEST_F(DialectPassageTest, TableNamesOfAnyLengthAreSurvived) {
  const std::string name(40000, 'T');
  EXPECT_EQ(error_of([&] { execute(connection, "select * from " + name + " where DT='2024/03/31'"); }),
            -2147217865);
}

TEST_F(DialectPassageTest, RecordsetsStayOpenWhileTablesAreLookedUp) {
  const Object rows = open_recordset(connection, "Select * From STKCLOSEHD Order By CLOSEDT");
  execute(connection, "create table E(DT timestamp)");
  execute(connection, "insert into E(DT) values('2024/03/31')");
  EXPECT_EQ(remaining(rows, "NOTE"), "2024/02/29 x");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
