#include "standins/ado/dialect/insert_statement.h"

#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/cut_text.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::DateColumnCache;
using standins::ado::dialect::InsertStatement;
using standins::ado::dialect::Tokens;

// What is read of an INSERT, with the first token behind it as a text.
struct Read {
  std::vector<bool> dates;
  std::string behind;
};

Read read(std::string_view sql) {
  StockColumns columns;
  DateColumnCache cache(columns);
  const Tokens tokens = cut(sql);
  InsertStatement insert{{true, true, true}, 99};  // of the statement before
  read_insert(tokens, 1, cache, insert);
  return {insert.dates, insert.end == 0 ? "(none)" : std::string(tokens.text(insert.end))};
}

TEST(InsertStatement, TellsWhichOfItsColumnsHoldDates) {
  const Read of_header = read("Insert Into STKTRANHD (TRANNO,TRANDT,[addDt],Notes) Values('a',1,2,3)");
  EXPECT_EQ(of_header.dates, (std::vector<bool>{false, true, true, false}));
  EXPECT_EQ(of_header.behind, "Values");
  EXPECT_EQ(read("Insert Into main.[STKTRANHD](TRANDT) Select 1").dates, std::vector<bool>{true});
  EXPECT_EQ(read("Insert Into main.[STKTRANHD](TRANDT) Select 1").behind, "Select");
}

TEST(InsertStatement, HasNoListUnlessItIsOneOfPlainNames) {
  for (const std::string_view sql :
       {"Insert", "Insert Into", "Insert Into STKTRANHD", "Insert Into STKTRANHD Values(1)",
        "Insert Into STKTRANHD(", "Insert Into STKTRANHD(TRANDT", "Insert Into STKTRANHD(TRANDT,",
        "Insert Into STKTRANHD(TRANDT,)", "Insert Into STKTRANHD('TRANDT')",
        "Insert Into STKTRANHD(H.TRANDT)", "Insert STKTRANHD(TRANDT) Values(1)",
        "Insert Into 'STKTRANHD'(TRANDT) Values(1)"})
    EXPECT_EQ(read(sql).behind, "(none)") << sql;
}

TEST(InsertStatement, HasNoMoreColumnsThanATableCanHave) {
  const auto with_columns = [](int count) {
    std::string sql = "Insert Into T(A";
    for (int i = 1; i < count; ++i) sql += ",A";
    return sql + ") Values(1)";
  };
  EXPECT_EQ(read(with_columns(2000)).behind, "Values");
  EXPECT_EQ(read(with_columns(2001)).behind, "(none)");
}

}  // namespace
}  // namespace tallyra::tests::dialect
