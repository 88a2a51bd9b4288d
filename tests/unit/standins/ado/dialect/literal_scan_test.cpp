#include "standins/ado/dialect/literal_scan.h"

#include <gtest/gtest.h>

#include <string>

#include "standins/ado/dialect/tokenizer.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"

namespace tallyra::tests::dialect {
namespace {

using namespace standins::ado::dialect;

// The text with each value in angle brackets behind the letter of its kind; empty when it is not taken.
std::string marked(std::string_view sql) {
  StatementForm form;
  if (!scan_literals(sql, form)) return {};
  std::string result;
  std::size_t copied = 0;
  for (const Literal& literal : form.literals) {
    result.append(sql.substr(copied, literal.begin - copied))
        .append(1, "tirnd"[static_cast<int>(literal.kind)]);
    result.append("<").append(sql.substr(literal.begin, literal.end - literal.begin)).append(">");
    copied = literal.end;
  }
  return result.append(sql.substr(copied));
}

TEST(LiteralScan, FindsTheValuesOfAText) {
  struct Row {
    std::string_view sql;
    std::string_view marked;
  };
  const Row rows[] = {
      {"Insert Into T (A) Values ('it''s',12,-1.5,Null,#2024/3/31#)",
       "Insert Into T (A) Values (t<'it''s'>,i<12>,r<-1.5>,n<Null>,d<#2024/3/31#>)"},
      {"select A1,T2.B from T2 where A=1e-7 and B>-2", "select A1,T2.B from T2 where A=r<1e-7> and B>-i<2>"},
      {"update T set A=NULL , B= .5,C=5. where D is null and E=''",
       "update T set A=n<NULL> , B= r<.5>,C=r<5.> where D is null and E=t<''>"},
      {"DELETE from T where A='--' or B='/*'", "DELETE from T where A=t<'--'> or B=t<'/*'>"},
      {"select A-1, 2-A, (-3)", "select A-i<1>, i<2>-A, (i<-3>)"},
      {"select nullif(A,B), xnull, count(null)", "select nullif(A,B), xnull, count(n<null>)"},
  };
  for (const Row& row : rows) EXPECT_EQ(marked(row.sql), row.marked);
}

TEST(LiteralScan, LeavesAloneWhatItDoesNotRead) {
  for (const std::string_view sql : {"create table T(A integer)",
                                     "begin",
                                     "",
                                     "explain select 1",
                                     " select 1",
                                     "select 1 -- comment",
                                     "select 1 /* comment */",
                                     "select [A]",
                                     "select \"A\"",
                                     "select `A`",
                                     "select x'41'",
                                     "select N'a'",
                                     "select 0x10",
                                     "select 1; select 2",
                                     "select ?",
                                     "select :a",
                                     "select $a",
                                     "select @a",
                                     "select 'open",
                                     "select {fn now()}",
                                     "select 1e",
                                     "select 1e+",
                                     "select 1abc",
                                     "select 1.2.3",
                                     "select A.5",
                                     "select #soon#",
                                     "select \v1",
                                     "select 'a\\"})
    EXPECT_EQ(marked(sql), "") << sql;
  using namespace std::string_view_literals;
  EXPECT_EQ(marked("select 'a\0b'"sv), "");
  EXPECT_EQ(marked("select \0'b'"sv), "");
}

TEST(LiteralScan, GivesTextsThatDifferInValuesOneForm) {
  StatementForm one;
  StatementForm other;
  ASSERT_TRUE(scan_literals("Insert Into T (A,B) Values ('x',1)", one));
  ASSERT_TRUE(scan_literals("Insert Into T (A,B) Values (Null,-1.5e3)", other));
  EXPECT_EQ(one.form, other.form);
  ASSERT_TRUE(scan_literals("Insert Into T (A,B) Values ('x', 1)", other));
  EXPECT_NE(one.form, other.form) << "a blank more";
}

// Each value is a token, or a sign and a number.
TEST(LiteralScan, CutsAsTheTokenizerDoes) {
  for (const std::string& sql : component_statements()) {
    StatementForm form;
    if (!scan_literals(sql, form)) continue;
    Tokens tokens;
    tokenize(sql, tokens);
    std::size_t at = 0;
    for (const Literal& literal : form.literals) {
      while (tokens[at].begin < literal.begin) ++at;
      EXPECT_EQ(tokens[at].begin, literal.begin) << sql;
      const bool sign = tokens[at].kind == TokenKind::arithmetic;
      EXPECT_EQ(tokens[at + (sign ? 1 : 0)].end, literal.end) << sql;
    }
  }
}

}  // namespace
}  // namespace tallyra::tests::dialect
