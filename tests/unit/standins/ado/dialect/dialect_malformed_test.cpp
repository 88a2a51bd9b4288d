#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/engine.h"
#include "tests/unit/standins/ado/dialect/mangled_statement.h"
#include "tests/unit/standins/ado/dialect/rewriting.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

// What is malformed must stay so: rewritten to something valid it would read or write what nobody asked for.
namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

bool refuses(Engine& engine, std::string_view sql) {
  const bool refused = engine.run(sql).starts_with('!');
  engine.roll_back();
  return refused;
}

// Those that are well formed to begin with.
std::vector<MangledStatement> whole_statements(Engine& engine) {
  std::vector<MangledStatement> statements;
  for (const std::string& statement : component_statements())
    if (!refuses(engine, rewritten(statement))) statements.emplace_back(statement);
  return statements;
}

TEST(MalformedStatement, MangledFromTheComponentsOwnIsRefusedByTheEngine) {
  constexpr int rounds = 15;
  Engine engine;
  const std::vector<MangledStatement> whole = whole_statements(engine);
  StockColumns columns;
  SqliteDialect dialect(columns);
  std::mt19937 random(20240331);
  int malformed = 0;
  int valid = 0;
  int valid_and_refused = 0;
  for (int round = 0; round < rounds; ++round)
    for (MangledStatement mangled : whole) {
      mangled.mangle(random);
      const std::string sent = mangled.as_sent();
      const std::string rewritten(dialect.rewrite(sent));
      const bool refused = refuses(engine, rewritten);
      if (refuses(engine, mangled.for_engine())) {
        ++malformed;
        EXPECT_TRUE(refused) << "sent:      " << sent << "\nrewritten: " << rewritten;
      } else {
        ++valid;
        valid_and_refused += refused;
      }
    }
  std::printf("%d malformed statements, %d valid ones, %d of these refused\n", malformed, valid,
              valid_and_refused);
  EXPECT_GT(malformed, 5000);
  EXPECT_GT(valid, 500);
  // The engine takes the word All in places where no client writes Top n.
  EXPECT_LT(valid_and_refused, valid / 100);
}

TEST(MalformedStatement, IsLeftAloneWhereADateOrATopCannotStand) {
  Engine engine;
  for (const std::string_view text : {
           // of TOP
           "Select Top 5 'abc",
           "Select Top 5 \"abc",
           "Select Top 5 [abc",
           "Select Top 5 `abc From PARTS",
           "Select Top (5) 'From PARTS",
           "Select Top 5 Distinct PARTNO From PARTS",
           "Select Top 5 All PARTNO From PARTS",
           "Select Top 5 Where 1=1",
           "Select Top 5 Order By 1",
           "Select 1 Union Select Top 5 Order By 1",
           "Select Top 1 PARTNO From PARTS Order By 1 Union Select DEPTNO From DEPARTS",
           // of a date that touches a text
           "Select 'a'#2024/3/31#",
           "Select #2024/3/31#'a'",
           "Select #2024/3/31##2024/3/31#",
           "Select 'a' #2024/3/31#",
           "Select #2024/3/31# 'a'",
           "Select #2024/3/31#'",
           "Update DEPARTS Set DEPTNM='a'#2024/3/31#",
           "Update DEPARTS Set DEPTNM=#2024/3/31#''",
           // of a date where a name or nothing stands
           "Select PARTNO#2024/3/31# From PARTS",
           "Select PARTNO As #2024/3/31# From PARTS",
           "Select 5#2024/3/31#",
           "Select (5)#2024/3/31#",
           "Select [PARTNO]#2024/3/31# From PARTS",
           "Select * From PARTS#2024/3/31#",
           "Select * From PARTS As #2024/3/31# Where 1=1",
           "Select x#2024/3/31# From PARTS x",
           "Select Null#2024/3/31#",
           "Select Case When 1 Then 2 End#2024/3/31#",
           "With C(#2024/3/31#) As (Select 1) Select * From C",
           "With C As (Select 1), D(#2024/3/31#) As (Select 1) Select * From D",
           "Select * From (With C(#2024/3/31#) As (Select 1) Select * From C)",
           "Create Table N(#2024/3/31#)",
           "Create Table N(A Integer,#2024/3/31# Integer)",
           "Create View N(#2024/3/31#) As Select 1",
           "Insert Into DEPARTS(DEPTNO) Values #2024/3/31#",
           "Insert Into DEPARTS(DEPTNO) Values#2024/3/31#",
           "Select Max#2024/3/31#",
           "Select 1 In#2024/3/31#",
           "Select 1 Is #2024/3/31#",
       }) {
    EXPECT_EQ(rewritten(text), text);
    EXPECT_TRUE(refuses(engine, rewritten(text))) << text;
  }
}

TEST(ValidStatement, HasItsDatesWhereverAValueMayStand) {
  Engine engine;
  for (const std::string_view text : {
           "Select #2024/3/31#",
           "Select Top 5 #2024/3/31# From PARTS",
           "Select Top(5)#2024/3/31#From PARTS",
           "Select Distinct #2024/3/31#",
           "Select All #2024/3/31#",
           "Select 1,#2024/3/31#",
           "Select (#2024/3/31#)",
           "Select #2024/3/31# A",
           "Select #2024/3/31#As A",
           "Select -#2024/3/31#",
           "Select 1*#2024/3/31#",
           "Select Max(#2024/3/31#,#2024/4/1#)",
           "Select Case #2024/3/31# When #2024/3/31# Then #2024/3/31# Else "
           "#2024/3/31# End",
           "Select * From PARTS Where #2024/3/31# Or Not #2024/3/31# And #2024/3/31#",
           "Select * From PARTS Where EDITDT Between #2024/3/31# And #2024/4/1# And PARTNO Like #2024/3/31#",
           "Select * From PARTS Where EDITDT Not In (#2024/3/31#,#2024/4/1#)",
           "Select * From PARTS Where EDITDT=#2024/3/31#And PARTNO='a'",
           "Select PARTNO From PARTS Group By #2024/3/31# Having #2024/3/31# Order By #2024/3/31#",
           "Select * From PARTS P Inner Join DEPARTS D On #2024/3/31#<P.EDITDT",
           "Update PARTS Set EDITDT=Max(#2024/3/31#,EDITDT) Where EDITDT<Max(#2024/3/31#,#2024/4/1#)",
           "With C As (Select #2024/3/31#) Delete From PARTS Where EDITDT<Max(#2024/3/31#,#2024/4/1#)",
           "Insert Into DEPARTS(DEPTNO,DEPTNM) Values(#2024/3/31#,#2024/3/31#)",
           "Create Table N(A Timestamp Default #2024/3/31#,B Integer Check(A>#2024/3/31# Or A "
           "In(#2024/3/31#)))",
           "Create View V(A) As Select Max(#2024/3/31#,#2024/4/1#)",
       }) {
    const std::string sql = rewritten(text);
    EXPECT_EQ(sql.find('#'), std::string::npos) << text;
    EXPECT_FALSE(refuses(engine, sql)) << text << "\n" << sql;
  }
}

}  // namespace
}  // namespace tallyra::tests::dialect
