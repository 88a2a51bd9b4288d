#include <gtest/gtest.h>

#include "standins/ado/dialect/postgresql_dialect.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::PostgresqlDialect;

std::string rewritten_for_the_server(std::string_view sql) {
  StockColumns columns;
  PostgresqlDialect dialect(columns);
  return std::string(dialect.rewrite(sql));
}

struct Row {
  std::string_view sql;
  std::string_view rewritten_for_the_server;
};

TEST(PostgresqlWords, WritesItsOwnWords) {
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
  for (const Row& row : rows) EXPECT_EQ(rewritten_for_the_server(row.sql), row.rewritten_for_the_server);
}

TEST(PostgresqlWords, LeavesAloneWhatMeansTheSameOrIsMalformed) {
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
    EXPECT_EQ(rewritten_for_the_server(sql), sql);
}

}  // namespace
}  // namespace tallyra::tests::dialect
