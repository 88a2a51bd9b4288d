#include "standins/ado/odbc/odbc_session.h"

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class OdbcSessionTest : public ScratchDatabase {
 protected:
  OdbcSessionTest() { session_.run("create table T(A integer, D timestamp)", false); }

  static Value first(EngineSession& session, std::string_view sql) {
    const StatementResult result = session.run(sql, false);
    return result.rows && result.rows->row_count() == 1 ? result.rows->value(0, 0) : Value("no single row");
  }

  OdbcSession session_{odbc_string(), 0};
};

TEST_F(OdbcSessionTest, TellsRowsOrHowManyItTouched) {
  EXPECT_EQ(session_.run("insert into T(A) values(1),(2)", true).affected_rows, 2);
  EXPECT_EQ(session_.run("update T set A=A where A>5", true).affected_rows, 0);
  EXPECT_EQ(session_.run("update T set A=A", false).affected_rows, -1);
  EXPECT_FALSE(session_.run("update T set A=A", false).rows);
  EXPECT_EQ(first(session_, "select sum(A) from T"), Value(3));
}

TEST_F(OdbcSessionTest, SpeaksTheWordsOfTheComponent) {
  session_.run("insert into T(A,D) values(1,#2024/3/31#)", false);
  EXPECT_EQ(first(session_, "Select Top 1 A From T Where D='2024/03/31'"), Value(1));
  EXPECT_EQ(error_of([&] { session_.run("Select A From T Where D='soon'", false); }), -2147217913);
  EXPECT_EQ(error_of([&] { session_.run(std::string_view("Select 1\0", 9), false); }), -2147217900);
}

TEST_F(OdbcSessionTest, EndsATransactionEitherWay) {
  EXPECT_FALSE(session_.in_transaction());
  session_.begin();
  EXPECT_TRUE(session_.in_transaction());
  session_.run("insert into T(A) values(1)", false);
  session_.rollback();
  EXPECT_FALSE(session_.in_transaction());
  EXPECT_EQ(first(session_, "select count(*) from T"), Value(0));
  session_.begin();
  session_.run("insert into T(A) values(1)", false);
  session_.commit();
  EXPECT_FALSE(session_.in_transaction());
  EXPECT_EQ(first(session_, "select count(*) from T"), Value(1));
}

TEST_F(OdbcSessionTest, DiscardsATransactionWhenItGoes) {
  {
    OdbcSession passing(odbc_string(), 0);
    passing.begin();
    passing.run("insert into T(A) values(1)", false);
  }
  EXPECT_EQ(first(session_, "select count(*) from T"), Value(0));
}

TEST_F(OdbcSessionTest, TellsOfTheEngineAndOfItsString) {
  EXPECT_EQ(session_.information(Information::dbms_name), "SQLite");
  EXPECT_NE(session_.information(Information::dbms_version), "");
  EXPECT_NE(session_.completed_string().find("test.db"), std::string::npos);
}

TEST_F(OdbcSessionTest, AFailedLogInIsTheDriversError) {
  EXPECT_EQ(error_of([] { OdbcSession("DRIVER={no such driver}", 0); }), -2147467259);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
