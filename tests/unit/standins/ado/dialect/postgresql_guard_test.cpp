#include "standins/ado/dialect/postgresql_guard.h"

#include <gtest/gtest.h>

#include "standins/ado/dialect/postgresql_dialect.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::PostgresqlDialect;
using standins::ado::dialect::Reach;

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
                                     "Select setting From pg_settings Where name='lock_timeout'",
                                     "Select pg_settings From T",
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
           "Update pg_settings Set setting='off' Where name='standard_conforming_strings'",
           "update PG_CATALOG.PG_SETTINGS set setting='off'",
           "Update \"pg_settings\" Set setting='off'",
           "With W As (Update pg_settings Set setting='off' Returning 1) Select * From W",
           "Explain Analyze Update pg_settings Set setting='off'",
           "(With W As (Update pg_settings Set setting='off' Returning 1) Select * From W)",
           "Select * From pg_shadow",
           "\vCopy T To Program 'id'",
           "Create\vExtension dblink",
           "?Copy T To Program 'id'",
           "'x' Copy T",
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
       })
    EXPECT_EQ(reach_of(sql), Reach::beyond) << sql;
}

// What is misread, postgresql_misread_text_test.cpp tells.
TEST(PostgresqlGuard, RefusesWhatTheServerReadsOtherwiseThanItSeems) {
  EXPECT_EQ(reach_of("Select $$'$$, 1"), Reach::beyond);
  EXPECT_EQ(reach_of("Select 1 /* {fn now()} */"), Reach::beyond);
}

TEST(PostgresqlGuard, RefusesASecondStatement) {
  for (const std::string_view sql : {"Select 1; Select 2", "Delete From T;;Drop Table T"})
    EXPECT_EQ(reach_of(sql), Reach::several) << sql;
}

}  // namespace
}  // namespace tallyra::tests::dialect
