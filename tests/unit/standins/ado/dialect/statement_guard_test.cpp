#include "standins/ado/dialect/statement_guard.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/rewriting.h"

// Which texts SQLite must not get, told by themselves.
namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::Reach;
using standins::ado::dialect::SqliteDialect;

struct Judged {
  Reach reach;
  std::string cause;
};

Judged judged(std::string_view sql) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  dialect.rewrite(sql);
  return {dialect.verdict().reach, std::string(dialect.verdict().cause)};
}

TEST(StatementGuard, LetsPassWhatStaysInTheDatabase) {
  for (const std::string_view sql : {
           "",
           ";",
           "Select 1",
           "Select 1;",
           " Select 1 ; ; -- end",
           "nonsense",
           "Select 'it''s {fn x}; attach'",
           "Select \"a{b}\" From T",
           "Select * From T Where A='load_extension(''x'')'",
           "Select attach,vacuum,[detach] From T",
           "Select * From T Where A In ('fsdir','x') And B<>'pragma_optimize'",
           "Select * From T Join U On T.A='fsdir' And f(T.A,'fsdir')=1",
           "Select * From T Order By A,'zipfile'",
           "Select * From T Where A Is Not Distinct From 'fsdir'",
           "Insert Into T(A,B) Values('zipfile','pragma_optimize')",
           "Insert Into T(A,B) Select 'fsdir','fsdir' From (Values('fsdir','fsdir'))",
           "Update T Set A='x',B='zipfile' Where A Between 'fsdir' And 'zipfile'",
           "Select EDIT,[edit] From T",
           "Select loads_extension(1)",
           "Update T Set A=1 Where B='--' /* load_extension('x') */",
           "Delete * From T",
           "Select [it's] From T",
           "Create Table T(A,B)",
           "Create Temp Table T(A)",
           "Create Index I On T(A)",
           "Begin",
           "Commit",
           "Create Trigger G After Insert On T Begin Select 1; Delete From U; End",
           "Create Temp Trigger G After Insert On T Begin Select Case When 1 Then 2 End; End;",
           "Pragma journal_mode=WAL",
           "PRAGMA main.table_info(T)",
           "Pragma [user_version]",
           "Pragma",
           "Explain Query Plan Select 1",
           "Select 1 Where A=$x",
           "Select :a, @b, #c",
           "Select '$x(' || A",
       })
    EXPECT_EQ(judged(sql).reach, Reach::database) << sql << " because of " << judged(sql).cause;
}

TEST(StatementGuard, RefusesFunctionsThatReachFurtherHoweverWritten) {
  for (const std::string_view name :
       {"load_extension", "LOAD_Extension", "[load_extension]", "\"Load_Extension\"", "`load_extension`",
        "fts3_tokenizer", "blob_import", "blob_export", "readfile", "writefile", "edit"})
    for (const std::string_view arguments : {"('x')", " ('x','y')", "/* a */('x')", " -- b\n ('x')"})
      for (const std::string_view before :
           {"Select ", "Select * From T Where A='' Or ", "Insert Into T(A) Values(", "Select 1 /* ' */, ",
            "Create View V As Select ", "Create Trigger G After Insert On T Begin Select 1; Select ",
            "Select Top 1 ", "Update T Set A=#2024/03/31# Where ", "With x As (Select ", "Explain Select "}) {
        const std::string sql = std::string(before) + std::string(name) + std::string(arguments);
        EXPECT_EQ(judged(sql).reach, Reach::beyond) << sql;
        EXPECT_EQ(judged(sql).cause, name) << sql;
      }
}

TEST(StatementGuard, RefusesTablesThatAreFiles) {
  for (const std::string_view sql :
       {"Select * From fsdir Where path='/'", "Select * From T, zipfile", "Select name From [fsdir]('/')"})
    EXPECT_EQ(judged(sql).reach, Reach::beyond) << sql;
}

// Every place where the engine takes a text for the name of a table.
TEST(StatementGuard, RefusesThemInSingleQuotesWhereATableStands) {
  for (const std::string_view table : {"'fsdir'", "'ZipFile'", "'pragma_optimize'"})
    for (const std::string_view before :
         {"Select * From ",
          "Select * From main.",
          "Select * From 'main'.",
          "Select * From/* a */",
          "Select * From T,",
          "Select * From T As [a b],",
          "Select * From T As window,",
          "Select * From (",
          "Select * From T,(",
          "Select * From (T Join U On (T.A=U.A),",
          "Select * From T Join ",
          "Select * From T Left Join (",
          "Select * From (Select * From T Where A='x'), ",
          "Select * From T Join U On T.A In ('x','y'),",
          "Select * From T Where A In ",
          "Select * From T Where A='' Union All Select * From ",
          "Select (Select 1 From T,",
          "With x As (Select 1 From ",
          "Delete From T Where A In (Select 1 From ",
          "Update T Set A=1 From ",
          "Insert Into ",
          "Update ",
          "Create View V As Select * From ",
          "Create Trigger G After Insert On T Begin Select 1; Select * From "})
      for (const std::string_view behind : {"", "('/')", " /* a */ ('/')", " As x"}) {
        const std::string sql = std::string(before) + std::string(table) + std::string(behind);
        EXPECT_EQ(judged(sql).reach, Reach::beyond) << sql;
        EXPECT_EQ(judged(sql).cause, table) << sql;
      }
}

// A pragma as a table does what the statement does, without the word.
TEST(StatementGuard, RefusesPragmasAsTablesUnlessTheyAreHarmless) {
  for (const std::string_view table :
       {"pragma_optimize", "PRAGMA_Optimize", "[pragma_optimize]", "\"pragma_optimize\"", "`pragma_optimize`",
        "'pragma_optimize'", "pragma_module_list", "pragma_", "pragma_writable_schema"})
    for (const std::string_view before :
         {"Select * From ", "Select * From main.", "Select 1 Union All Select count(*) From T,"})
      for (const std::string_view behind : {"", "(-1)"}) {
        const std::string sql = std::string(before) + std::string(table) + std::string(behind);
        EXPECT_EQ(judged(sql).reach, Reach::beyond) << sql;
        EXPECT_EQ(judged(sql).cause, table) << sql;
      }
  for (const std::string_view sql :
       {"Select * From pragma_table_info('T')", "Select * From PRAGMA_Database_List",
        "Select * From [pragma_function_list]", "Select * From 'pragma_table_info'('T')",
        "Select pragmas,pragma From T"})
    EXPECT_EQ(judged(sql).reach, Reach::database) << sql << " because of " << judged(sql).cause;
}

TEST(StatementGuard, RefusesStatementsThatOpenOrWriteFiles) {
  const struct {
    std::string_view sql;
    std::string_view cause;
  } rows[] = {
      {"Attach 'x' As y", "Attach"},
      {"/* a */ aTTach Database 'x' As y", "aTTach"},
      {"Detach y", "Detach"},
      {"Vacuum", "Vacuum"},
      {"VACUUM main INTO 'x'", "VACUUM"},
      {"Explain Attach 'x' As y", "Attach"},
      {"Explain Query Plan Vacuum Into 'x'", "Vacuum"},
      {"Create Virtual Table T Using csv(filename='x')", "Virtual"},
      {"Pragma temp_store_directory='x'", "temp_store_directory"},
      {"Pragma main.\"temp_store_directory\"", "\"temp_store_directory\""},
      {"Pragma 'data_store_directory'", "'data_store_directory'"},
      {"Explain Pragma writable_schema=1", "writable_schema"},
      {"Pragma trusted_schema=1", "trusted_schema"},
  };
  for (const auto& [sql, cause] : rows) {
    EXPECT_EQ(judged(sql).reach, Reach::beyond) << sql;
    EXPECT_EQ(judged(sql).cause, cause) << sql;
  }
}

// What is misread, misread_text_test.cpp tells.
TEST(StatementGuard, RefusesWhatTheDriverOrTheEngineReadsOtherwise) {
  EXPECT_EQ(judged("Select /* { */ 1").reach, Reach::beyond);
  EXPECT_EQ(judged("Select /* { */ 1").cause, "{");
  EXPECT_EQ(judged("Select 1; Select \v 2").cause, "\v") << "before what is wrong otherwise";
}

TEST(StatementGuard, RefusesASecondStatement) {
  const struct {
    std::string_view sql;
    std::string_view cause;
  } rows[] = {
      {"Select 1; Select 2", "Select"},
      {"Delete From T;Drop Table T", "Drop"},
      {"Create Table T(A); Delete From U", "Delete"},
      {"Select 1 /* ' */; Delete From U /* ' */", "Delete"},
      {"; Select 1", "Select"},
      {"Select 1;;;'a'", "'a'"},
      {"Create Trigger G After Insert On T Begin Select 1; End; Delete From U", "Delete"},
      {"Create Trigger G After Insert On T Begin Select 1; Select Case When 1 Then 2 End; End; Drop Table U",
       "Drop"},
      {"Create Table Trigger(A); Drop Table U", "Drop"},
  };
  for (const auto& [sql, cause] : rows) {
    EXPECT_EQ(judged(sql).reach, Reach::several) << sql;
    EXPECT_EQ(judged(sql).cause, cause) << sql;
  }
}

TEST(StatementGuard, TakesLinearTime) {
  for (const std::string_view piece :
       {"$", ":a", "@a::", "#", "'", "[']", "\v", "edit", ";", "End;", "explain ", "From(", "'fsdir'", ","}) {
    std::string sql = "Create Trigger ";
    while (sql.size() < 2'000'000) sql += piece;
    EXPECT_EQ(judged(sql).reach == Reach::beyond, piece == "\v") << piece;
  }
}

TEST(StatementGuard, JudgesWhatTheShortWayOfAnInsertTakes) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (const std::string_view head :
       {"Insert Into STKTRANHD(TRANNO) Values(", "Insert Into STKTRANHD /* ' */ (TRANNO) Values("})
    for (const std::string_view values :
         {"'a')", "load_extension('x'))", "'a'); Drop Table T", "'{fn x}')"}) {
      const std::string sql = std::string(head) + std::string(values);
      dialect.rewrite(sql);
      EXPECT_EQ(dialect.verdict().reach, judged(sql).reach) << sql;
    }
}

}  // namespace
}  // namespace tallyra::tests::dialect
