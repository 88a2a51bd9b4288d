#include "standins/ado/dialect/postgresql_misread_text.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/cut_text.h"

// Where PostgreSQL and its driver see another text than the tokens show.
namespace tallyra::tests::dialect {
namespace {

std::string misread_on_the_server(std::string_view sql) {
  return std::string(standins::ado::dialect::misread_by_postgresql(cut(sql)));
}

TEST(PostgresqlMisreadText, IsFoundWhereAQuoteOrACommentEndsElsewhere) {
  for (const std::string_view sql : {
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
           "Create\vExtension dblink",
       })
    EXPECT_NE(misread_on_the_server(sql), "") << sql;
}

TEST(PostgresqlMisreadText, IsToldByThePartThatIsReadOtherwise) {
  EXPECT_EQ(misread_on_the_server("Select $a$'$a$"), "$a$");
  EXPECT_EQ(misread_on_the_server("Select E'\\''"), "'\\''");
  EXPECT_EQ(misread_on_the_server("Select {fn now()}"), "{");
}

TEST(PostgresqlMisreadText, IsNoneWhereEveryoneReadsTheSame) {
  for (const std::string_view sql :
       {"", "Select 'a\\' From T", "Select E'x' From T", "Select E 'x\\'", "Select \"a{b}\" From T",
        "Select A -- it ends", "Select /* here */ A", "Select a$b From T",
        "Insert Into T Values('{fn now()}','$$')", "Select A&'x'"})
    EXPECT_EQ(misread_on_the_server(sql), "") << sql;
}

}  // namespace
}  // namespace tallyra::tests::dialect
