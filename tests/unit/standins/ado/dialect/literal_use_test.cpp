#include "standins/ado/dialect/literal_use.h"

#include <gtest/gtest.h>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using namespace standins::ado::dialect;

std::string form_for_engine(std::string_view sql) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  StatementForm form;
  EXPECT_TRUE(scan_literals(sql, form)) << sql;
  std::vector<LiteralUse> uses;
  return std::string(dialect.rewrite_form(sql, form.literals, uses));
}

TEST(LiteralUse, GivesValuesApartThatAreNothingElse) {
  struct Row {
    std::string_view sql;
    std::string_view form;
  };
  const Row rows[] = {
      {"Insert Into T (A,B,C) Values ('x',-1.5, Null)", "Insert Into T (A,B,C) Values (?,?, ?)"},
      {"Insert Into T (A,B) Values (1+1,lower('X'))", "Insert Into T (A,B) Values (1+1,lower('X'))"},
      {"Insert Into T (A,B) Values ('a','b'),('c','d')", "Insert Into T (A,B) Values ('a','b'),('c','d')"},
      {"Insert Into T (A) Values ('a') returning 'b'", "Insert Into T (A) Values ('a') returning 'b'"},
      {"Insert Into T Values ('a')", "Insert Into T Values ('a')"},
      {"Insert Into T (A) Select 'a' From U Where B='b'", "Insert Into T (A) Select 'a' From U Where B=?"},
      {"Update T Set A='a',B = 5, C=Null Where D='d' And E=7",
       "Update T Set A=?,B = ?, C=? Where D=? And E=7"},
      {"Update T Set A=B+5,C='a'||'b',D=E='x',F=(5)", "Update T Set A=B+5,C='a'||'b',D=E='x',F=(5)"},
      {"Select 'a',A='b' From T Where A='c' Group By A='d' Having A='e' Order By 1",
       "Select 'a',A='b' From T Where A=? Group By A='d' Having A='e' Order By 1"},
      {"Select A From T Where A<>'a' And B Like 'b' And C In ('c') And D Between 'd' And 'e'",
       "Select A From T Where A<>'a' And B Like 'b' And C In ('c') And D Between 'd' And 'e'"},
      {"Select A From T Where (A='a' Or B>='b') And Not (C<'c') And lower(D='d')=1 And Null=A",
       "Select A From T Where (A=? Or B>=?) And Not (C<?) And lower(D='d')=1 And Null=A"},
      {"Select A From T Where A='a' collate nocase And B='b'||'c' And 'd'=C And D=Null",
       "Select A From T Where A='a' collate nocase And B='b'||'c' And 'd'=C And D=Null"},
      {"Select A From T Inner Join U On T.A=U.A And U.B='b' Where T.C='c'",
       "Select A From T Inner Join U On T.A=U.A And U.B=? Where T.C=?"},
      {"Select A From T Where A In (Select B From U Where C='c' Limit 5) And D='d'",
       "Select A From T Where A In (Select B From U Where C=? Limit 5) And D=?"},
      {"Select (Select Max(B) From U Where K='x'),C From T Where D='d'",
       "Select (Select Max(B) From U Where K='x'),C From T Where D=?"},
      {"Select * From (Select Abs((Select B From U Where K='x')) From T Where D='d') Where E='e'",
       "Select * From (Select Abs((Select B From U Where K='x')) From T Where D=?) Where E=?"},
      {"Select (Select B From U Where K='x') As M,(Select B From U Where K='y') N From T",
       "Select (Select B From U Where K=?) As M,(Select B From U Where K='y') N From T"},
      {"Select (Select B From U Where K='x')+1 As M From T",
       "Select (Select B From U Where K='x')+1 As M From T"},
      {"Select (Select (Select B From U Where K='x') From V Where L='y') As M From T",
       "Select (Select (Select B From U Where K=?) From V Where L=?) As M From T"},
      {"Select A Is Distinct From (Select B From U Where K='x') From T Where D='d'",
       "Select A Is Distinct From (Select B From U Where K='x') From T Where D=?"},
      {"Select A From T Where D='d' Union Select (Select B From U Where K='x') From T",
       "Select A From T Where D=? Union Select (Select B From U Where K='x') From T"},
      {"Update T Set A='a' Where B='b' Returning (Select B From U Where K='x')",
       "Update T Set A=? Where B=? Returning (Select B From U Where K='x')"},
      {"Select Top 5 A From T Where B='b'", "Select A From T Where B=? LIMIT 5"},
      {"Delete * From T Where A='a'", "Delete From T Where A=?"},
      {"Select A From T Where Case When A='a' Then 'b' End='c'",
       "Select A From T Where Case When A='a' Then 'b' End='c'"},
  };
  for (const Row& row : rows) EXPECT_EQ(form_for_engine(row.sql), row.form);
}

TEST(LiteralUse, SaysWhichTextsAreDates) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  StatementForm form;
  std::vector<LiteralUse> uses;
  const std::string_view sql =
      "Insert Into STKTRANHD (TRANNO,TRANDT,ADDDT) Values ('2024/03/31','2024/03/31',Null)";
  ASSERT_TRUE(scan_literals(sql, form));
  dialect.rewrite_form(sql, form.literals, uses);
  ASSERT_EQ(uses.size(), 3U);
  EXPECT_EQ(uses[0].text, LiteralUse::Text::plain);
  EXPECT_EQ(uses[1].text, LiteralUse::Text::date);
  EXPECT_EQ(uses[2].text, LiteralUse::Text::unknown);
  EXPECT_EQ(uses[2].place, LiteralUse::Place::stored);
}

}  // namespace
}  // namespace tallyra::tests::dialect
