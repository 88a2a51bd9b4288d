#include "standins/ado/dialect/postgresql_dialect.h"

#include <gtest/gtest.h>

#include <string>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::PostgresqlDialect;
using standins::ado::dialect::Reach;
using standins::ado::dialect::SqliteDialect;

std::string rewritten(std::string_view sql) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  return std::string(dialect.rewrite(sql));
}

struct Row {
  std::string_view sql;
  std::string_view rewritten;
};

TEST(PostgresqlDialect, WritesItsOwnWords) {
  const Row rows[] = {
      {"Select Top 5 A From T", "Select A From T LIMIT 5"},
      {"Select Top 1 A From T Union All Select Top 2 B From U",
       "(Select A From T LIMIT 1) Union All (Select B From U LIMIT 2)"},
      {"Delete * From T Where A=1", "Delete From T Where A=1"},
      {"Delete T Where A=1", "Delete From T Where A=1"},
      {"Delete T", "Delete From T"},
      {"Delete a.T Where A=1", "Delete From a.T Where A=1"},
      {"Delete T.* From T Inner Join U On T.A=U.A Where U.B=1",
       "Delete FROM T AS doomed WHERE doomed.ctid=ANY(ARRAY(SELECT T.ctid From T Inner Join U On T.A=U.A "
       "Where "
       "U.B=1))"},
      {"Delete [T].* From [T] Inner Join U On [T].A=U.A",
       "Delete FROM \"t\" AS doomed WHERE doomed.ctid=ANY(ARRAY(SELECT \"t\".ctid From \"t\" Inner Join U On "
       "\"t\".A=U.A))"},
      {"Select [Part No],[a\"b] From [T] Where [D]='['",
       "Select \"part no\",\"a\"\"b\" From \"t\" Where \"d\"='['"},
      {"Update T Set T.A=1,T.B=U.B+(Select T.C From T) Where T.A=2",
       "Update T Set A=1,B=U.B+(Select T.C From T) Where T.A=2"},
      {"Update [T] Set [T].[A]='T.B=1'", "Update \"t\" Set \"a\"='T.B=1'"},
      {"Update STKTRANHD Set TRANDT=#2024/3/7# Where TRANDT=''",
       "Update STKTRANHD Set TRANDT='2024-03-07 00:00:00' Where TRANDT='1900-01-01 00:00:00'"},
  };
  for (const Row& row : rows) EXPECT_EQ(rewritten(row.sql), row.rewritten);
}

TEST(PostgresqlDialect, LeavesAloneWhatMeansTheSameOrIsMalformed) {
  for (const std::string_view sql : {
           "Select A From T Where (A=1",
           "Delete From T Where A=1",
           "Delete",
           "Delete T U",
           "Delete T.* Where A=1",
           "Select T.A From T Where T.A=1 And T.B=2",
           "Update T Set A=1 Where T.A=1 And T.B=2",
           "Update T Set (T.A)=(1)",
           "Update T Set T.A",
           "Insert Into T(A) Values('[x]')",
           "Select [open From T",
           "Select 'Delete T Where'",
       })
    EXPECT_EQ(rewritten(sql), sql);
}

TEST(PostgresqlDialect, SaysOfTheComponentsStatementsWhatItSaysForSqlite) {
  StockColumns columns;
  SqliteDialect sqlite(columns);
  for (const std::string& statement : component_statements()) {
    std::string expected(sqlite.rewrite(statement));
    if (const auto rows = expected.find(".rowid IN (SELECT "); rows != std::string::npos) {
      expected.replace(rows, 18, ".ctid=ANY(ARRAY(SELECT ");
      expected.replace(expected.find(".rowid"), 6, ".ctid");
      expected.insert(expected.rfind(')'), 1, ')');
    }
    EXPECT_EQ(rewritten(statement), expected);
  }
}

TEST(PostgresqlDialect, AHeadWithBracketsIsRewrittenEachTime) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(dialect.rewrite("Insert Into [T]([A]) Values(1)"), "Insert Into \"t\"(\"a\") Values(1)");
}

Reach reach_of(std::string_view sql) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  dialect.rewrite(sql);
  return dialect.verdict().reach;
}

TEST(PostgresqlGuard, LetsPassWhatStaysInTheDatabase) {
  for (const std::string_view sql : {"",
                                     ";",
                                     "Select 1;",
                                     "nonsense",
                                     "Selekt pg",
                                     "Select 'pg_read_file(''x'')'",
                                     "Select COPY,DO From T",
                                     "Select * From T Where A='copy T from program ''x'''",
                                     "Create Table T(A integer)",
                                     "Create Temp Table T(A integer)",
                                     "Create Unique Index I On T(A)",
                                     "Drop Table T",
                                     "Alter Table T Add B text",
                                     "Set lock_timeout=100",
                                     "Set Local statement_timeout='1s'",
                                     "Show all",
                                     "Begin",
                                     "Commit",
                                     "Explain Select 1",
                                     "Select \"a{b}\" From T",
                                     "Select 'a\\' From T",
                                     "Select A From T -- it ends",
                                     "Select /* here */ A From T",
                                     "Select ts_stat From T",
                                     "Select a$b From T",
                                     "Vacuum",
                                     "Analyze T",
                                     "Insert Into T Values('{fn now()}','$$')"})
    EXPECT_EQ(reach_of(sql), Reach::database) << sql;
}

TEST(PostgresqlGuard, RefusesWhatReachesBeyond) {
  for (const std::string_view sql : {
           "Copy T To '/tmp/x'",
           "copy T From Program 'id'",
           "/* x */ Copy T To Stdout",
           "Select pg_read_file('/etc/passwd')",
           "Select * From PG_LS_DIR('.')",
           "Select \"pg_read_binary_file\"('x')",
           "Select pg_catalog.pg_stat_file('x')",
           "Select * From T Where A=lo_import('/etc/passwd')",
           "Insert Into T Select lo_export(1,'/tmp/x')",
           "Select dblink('x','y')",
           "Select dblink_connect('x')",
           "Select query_to_xml('Select 1',true,true,'')",
           "Select ts_stat('Select 1')",
           "Select set_config('standard_conforming_strings','off',false)",
           "Select * From pg_shadow",
           "Do 'begin end'",
           "Load 'x'",
           "Call p()",
           "Create Extension dblink",
           "Create Or Replace Function f() Returns int As 'x' Language C",
           "Create Trusted Language x",
           "Create Foreign Table x(a int) Server y",
           "Create Server s Foreign Data Wrapper w",
           "Create Role x",
           "Drop Database x",
           "Alter System Set x=1",
           "Alter User x Superuser",
           "Alter Database x Set y=1",
           "Set standard_conforming_strings=off",
           "Set client_encoding='SJIS'",
           "Set Role postgres",
           "Set Session Authorization postgres",
           "Set",
           "Prepare p As Select 1",
           "Execute p",
           "Deallocate All",
           "Discard All",
           // what the server reads otherwise than it seems
           "Select E'\\'' , pg_read_file('x') --'",
           "Select U&'\\0027'",
           "Select $$'$$, 1",
           "Select $a$'$a$",
           "Select 1$$'$$",
           "Select 1E'x'",
           "Select /* /* */ ' */ 1 --'",
           "Select 1 -- x\rUnion Select 2",
           "Select ` ' `",
           "Select {fn now()}",
           "Select 1 /* {fn now()} */",
       })
    EXPECT_EQ(reach_of(sql), Reach::beyond) << sql;
}

TEST(PostgresqlGuard, RefusesASecondStatement) {
  for (const std::string_view sql : {"Select 1; Select 2", "Delete From T;;Drop Table T"})
    EXPECT_EQ(reach_of(sql), Reach::several) << sql;
}

}  // namespace
}  // namespace tallyra::tests::dialect
