#include "standins/ado/sqlite/sqlite_session.h"

#include <sqlite3.h>

#include <fstream>

#include "automation/convert.h"
#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

class SqliteSessionTest : public ScratchDatabase {
 protected:
  Object connection = open_connection();
};

TEST(SqliteForms, AreCompiledOnceForAllTheirTexts) {
  const tests::TestFolder folder;
  const std::string path = folder.file("test.db");
  { const std::ofstream empty(path, std::ios::app); }
  SqliteSession session({.path = path});
  session.run("create table T(A integer, B varchar(20), C double, D timestamp)", false);
  session.begin();
  session.run("Insert Into T (A,B,C,D) Values (1,'one',1.5,'2024/03/31')", false);
  const std::size_t after_one = session.compiled_forms();
  for (const char* const values :
       {"2,'it''s',Null,Null", "Null,Null,-7,'2024-04-01'", "-3,'',1e5,''", "4,5,6,#2024/4/2#"})
    session.run("Insert Into T (A,B,C,D) Values (" + std::string(values) + ")", false);
  EXPECT_EQ(session.compiled_forms(), after_one);
  session.commit();
}

TEST_F(SqliteSessionTest, WritesDatesAlikeByFormAndByText) {
  execute(connection, "create table T(A integer, D timestamp, V varchar(20))");
  for (const char* const date : {"'2024/03/31'", "'2024-3-31'", "#3/31/2024#", "'2024/03/31 00:00'"})
    execute(connection, "Insert Into T (A,D,V) Values (1," + std::string(date) + ",'2024/03/31')");
  EXPECT_EQ(scalar(connection, "select count(*) from T where D='2024/3/31'"), Value(4));
  EXPECT_EQ(scalar(connection, "select count(*) from T where D=#2024/03/31# and V='2024/03/31'"), Value(4));
  const auto wrong = [&] { execute(connection, "Insert Into T (A,D,V) Values (1,'soon','x')"); };
  EXPECT_EQ(error_of(wrong), -2147217913);
  EXPECT_EQ(description_of(wrong), "The text 'soon' cannot be converted to a date");
  execute(connection, "Update T Set D='' Where D='2024/03/31'");
  EXPECT_EQ(scalar(connection, "select count(*) from T where D='1900/01/01'"), Value(4));
}

TEST_F(SqliteSessionTest, LearnsThatAColumnHoldsDatesWhenATextFirstStandsThere) {
  execute(connection, "create table T(A integer, D timestamp)");
  for (const char* const date : {"Null", "Null", "'2024/03/31'", "Null", "'2024/04/01'"})
    execute(connection, "Insert Into T (A,D) Values (1," + std::string(date) + ")");
  EXPECT_EQ(remaining(open_recordset(connection, "select D from T where D is not null order by D"), "D"),
            "2024/03/31 2024/04/01");
}

// Numbers in a comparison stay in the text, with what differs by them.
TEST_F(SqliteSessionTest, TellsTextsOfOneFormApartWhereTheyDiffer) {
  execute(connection, "create table T(A integer, B varchar(5))");
  for (int i = 0; i < 5; ++i)
    execute(connection,
            "Insert Into T (A,B) Values (" + std::to_string(i) + ",'b" + std::to_string(i) + "')");
  for (int i = 0; i < 5; ++i) {
    const std::string n = std::to_string(i);
    EXPECT_EQ(scalar(connection, "select B from T where A=" + n), Value("b" + n));
    EXPECT_EQ(scalar(connection, "select A from T where B='b" + n + "'"), Value(i));
    EXPECT_EQ(scalar(connection, "select B from T where A in (" + n + ",99)"), Value("b" + n));
    EXPECT_EQ(scalar(connection, "select 'x" + n + "' from T"), Value("x" + n));
    EXPECT_EQ(number(open_recordset(connection, "Select Top " + n + " A From T Where B>='b0'", {3, 3})
                         .get("RecordCount")),
              i);
  }
}

// It may be the text of the column.
TEST_F(SqliteSessionTest, NamesAColumnTheSameHoweverOftenItIsRead) {
  execute(connection, "create table T(A integer, B varchar(9))");
  const std::string column = "(Select Max(A) From T Where B='x')";
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(field(open_recordset(connection, "Select " + column + " From T"), 0).get("Name"), Value(column))
        << i;
}

TEST_F(SqliteSessionTest, NoticesWhatOthersDoToTheSchema) {
  execute(connection, "create table T(A integer, D varchar(20))");
  const std::string insert = "Insert Into T (A,D) Values (1,'2024/03/31')";
  for (int i = 0; i < 3; ++i) execute(connection, insert);
  EXPECT_EQ(scalar(connection, "select D from T"), Value("2024/03/31"));
  const Object other = open_connection();
  execute(other, "drop table T");
  execute(other, "create table T(A integer, D timestamp, C integer)");
  execute(connection, insert);
  EXPECT_EQ(scalar(connection, "select length(D) from T"), Value(19)) << "a date now, with its time of day";
  EXPECT_EQ(fields(open_recordset(connection, "select * from T")).get("Count"), Value(3));
  execute(other, "alter table T add column E integer");
  EXPECT_EQ(fields(open_recordset(connection, "select * from T")).get("Count"), Value(4));
  connection.call("BeginTrans");
  execute(connection, insert);
  connection.call("CommitTrans");
  execute(other, "drop table T");
  EXPECT_EQ(error_of([&] { execute(connection, insert); }), -2147217865);
}

TEST_F(SqliteSessionTest, NoticesThatASchemaIsTakenBack) {
  connection.call("BeginTrans");
  execute(connection, "create table T(A integer, D timestamp)");
  execute(connection, "Insert Into T (A,D) Values (1,'2024/03/31')");
  connection.call("RollbackTrans");
  execute(connection, "create table T(A integer, D varchar(20))");
  execute(connection, "Insert Into T (A,D) Values (1,'2024/03/31')");
  EXPECT_EQ(scalar(connection, "select D from T"), Value("2024/03/31"));
}

TEST_F(SqliteSessionTest, KnowsTheDatesOfAView) {
  execute(connection, "create table T(A integer, D timestamp)");
  execute(connection, "create view V as select A as B, D as E from T");
  execute(connection, "Insert Into T (A,D) Values (1,'2024/03/31')");
  EXPECT_EQ(scalar(connection, "select B from V where E='2024/03/31'"), Value(1));
}

TEST_F(SqliteSessionTest, TakesMoreFormsThanItKeeps) {
  execute(connection, "create table T(A integer, B varchar(9))");
  for (int i = 0; i < 300; ++i) {
    execute(connection, "Insert Into T (A,B) Values (" + std::to_string(i) + ",'x')");
    EXPECT_EQ(scalar(connection, "select A as C" + std::to_string(i) +
                                     " from T where A=" + std::to_string(i) + " and B='x'"),
              Value(i));
  }
}

TEST_F(SqliteSessionTest, HoldsForeignKeysAndGivesLongNamesWhenAsked) {
  execute(connection, "create table P(A integer primary key)");
  execute(connection, "create table C(A integer references P(A))");
  execute(connection, "insert into C(A) values(1)");
  const Object strict = automation::create("ADODB.Connection");
  strict.call("Open", connection_string() + ";FKSupport=1;LongNames=1");
  EXPECT_EQ(description_of([&] { execute(strict, "insert into C(A) values(2)"); }),
            "FOREIGN KEY constraint failed");
  EXPECT_EQ(field(open_recordset(strict, "select A from C"), 0).get("Name"), Value("C.A"));
}

TEST_F(SqliteSessionTest, LetsEveryStatementStandAtOnceWhenAskedForNoTransactions) {
  execute(connection, "create table T(A integer)");
  const Object loose = automation::create("ADODB.Connection");
  loose.call("Open", connection_string() + ";NoTXN=1");
  loose.call("BeginTrans");
  execute(loose, "insert into T(A) values(1)");
  loose.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(1));
}

// A transaction that the database itself has ended is not reported as done.
TEST_F(SqliteSessionTest, DoesNotCommitWhatTheDatabaseHasRolledBack) {
  execute(connection, "create table T(A integer primary key)");
  connection.call("BeginTrans");
  execute(connection, "insert into T(A) values(1)");
  EXPECT_NE(error_of([&] { execute(connection, "insert or rollback into T(A) values(1)"); }), 0);
  EXPECT_NE(error_of([&] { execute(connection, "insert into T(A) values(2)"); }), 0);
  EXPECT_EQ(description_of([&] { connection.call("CommitTrans"); }),
            "The database has rolled the transaction back");
  connection.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(0));
  execute(connection, "insert into T(A) values(3)");
}

TEST_F(SqliteSessionTest, DoesNotCommitWhatATextHasRolledBack) {
  execute(connection, "create table T(A integer)");
  connection.call("BeginTrans");
  execute(connection, "insert into T(A) values(1)");
  execute(connection, "rollback");
  EXPECT_NE(error_of([&] { execute(connection, "insert into T(A) values(2)"); }), 0);
  EXPECT_NE(error_of([&] { connection.call("CommitTrans"); }), 0);
  connection.call("RollbackTrans");
  EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(0));
}

// As the library does, without an error to the statement, where it is short of memory.
void lose_all(sqlite3_context* context, int, sqlite3_value**) {
  sqlite3_exec(sqlite3_context_db_handle(context), "ROLLBACK", nullptr, nullptr, nullptr);
}
int add_lose_all(sqlite3* database, char**, const void*) {
  return sqlite3_create_function(database, "lose_all", 0, SQLITE_UTF8, nullptr, lose_all, nullptr, nullptr);
}

TEST_F(SqliteSessionTest, DoesNotCommitWhatIsGoneWithoutAWord) {
  execute(connection, "create table T(A integer)");
  const auto entry = reinterpret_cast<void (*)()>(add_lose_all);
  sqlite3_auto_extension(entry);
  const Object loser = open_connection();
  sqlite3_cancel_auto_extension(entry);
  for (const bool goes_on : {false, true}) {
    loser.call("BeginTrans");
    execute(loser, "insert into T(A) values(1)");
    open_recordset(loser, "select lose_all()");
    if (goes_on) {
      EXPECT_NE(error_of([&] { execute(loser, "insert into T(A) values(2)"); }), 0);
    }
    EXPECT_EQ(description_of([&] { loser.call("CommitTrans"); }),
              "The database has rolled the transaction back");
    loser.call("RollbackTrans");
    EXPECT_EQ(scalar(connection, "select count(*) from T"), Value(0));
  }
}

TEST_F(SqliteSessionTest, TakesAClientsOwnCommitForWhatItIs) {
  execute(connection, "create table T(A integer)");
  connection.call("BeginTrans");
  execute(connection, "insert into T(A) values(1)");
  execute(connection, "/* mine */ Commit");
  connection.call("CommitTrans");
  connection.call("BeginTrans");
  execute(connection, "insert into T(A) values(2)");
  execute(connection, "-- mine\nEnd Transaction");
  execute(connection, "insert into T(A) values(3)");
  connection.call("RollbackTrans");
  EXPECT_EQ(remaining(open_recordset(connection, "select A from T order by A"), 0), "1 2");
}

}  // namespace
}  // namespace tallyra::standins::ado::test
