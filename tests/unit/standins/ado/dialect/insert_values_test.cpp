#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

// The first rewriting of a head takes the long way, the second the short one.
void expect_both_ways(std::string_view text, std::string_view sqlite) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  EXPECT_EQ(dialect.rewrite(text), sqlite);
  EXPECT_EQ(dialect.rewrite(text), sqlite);
}

TEST(Insert, WritesDatesIntoDateColumnsOnly) {
  const std::string head = "Insert Into STKTRANHD (TRANNO,TRANDT,[NOTES],\"EDITDT\") Values (";
  const std::string day = "'2024-03-31 00:00:00'";
  for (const Rewriting& row : {
           Rewriting{"'a','2024/03/31','2024/03/31','2024/03/31'", "'a','D','2024/03/31','D'"},
           {"'2024/03/31', '2024/03/31' ,#2024/03/31#,#3/31/2024#", "'2024/03/31', 'D' ,'D','D'"},
           {"1,Null,-1.5E+20,'2024/03/31'", "1,Null,-1.5E+20,'D'"},
           {"'it''s','2024/02/30','#2024/03/31#',''",
            "'it''s','2024/02/30','#2024/03/31#','1900-01-01 00:00:00'"},
           {"'','','',Null", "'','1900-01-01 00:00:00','',Null"},
           {"'a','2024-03-31 00:00:00','b','2024/03/31'", "'a','2024-03-31 00:00:00','b','D'"},
           {"'a','2024/03/31'||'x','b',('2024/03/31')", "'a','2024/03/31'||'x','b',('2024/03/31')"},
           {"'a',(Select '2024/03/31'),'b','2024/03/31'", "'a',(Select '2024/03/31'),'b','D'"},
           {"'a', /* , */ '2024/03/31','b','2024/03/31' -- ,", "'a', /* , */ 'D','b','D' -- ,"},
           {"1- -1,'2024/03/31',1--1\n,'2024/03/31'", "1- -1,'D',1--1\n,'D'"},
           {"'\xE5\xAD\x97','2024/03/31',N'x',x'00'", "'\xE5\xAD\x97','D',N'x',x'00'"},
           {"1,2,3,4,'2024/03/31','2024/03/31'", "1,2,3,4,'2024/03/31','2024/03/31'"},
           {"'a','2024/03/31'", "'a','D'"},
           {"", ""},
           {",,", ",,"},
       }) {
    std::string values(row.sqlite);
    for (std::size_t at = 0; (at = values.find("'D'", at)) != std::string::npos;) values.replace(at, 3, day);
    const bool comment_at_end = row.text.find("-- ,") != std::string_view::npos;
    const std::string tail = comment_at_end ? "\n)" : ")";
    expect_both_ways(head + std::string(row.text) + tail, head + values + tail);
  }
}

TEST(Insert, IsUnderstoodInOtherShapes) {
  for (const Rewriting& row : {
           // several rows
           Rewriting{"Insert Into PARTS(PARTNO,EDITDT) Values('a','2024/03/31'),('b','2024/04/01')",
                     "Insert Into PARTS(PARTNO,EDITDT) Values('a','2024-03-31 00:00:00'),('b','2024-04-01 "
                     "00:00:00')"},
           {"Insert Into dbo.PARTS(PARTNO,EDITDT) Values('a','2024/03/31')",
            "Insert Into dbo.PARTS(PARTNO,EDITDT) Values('a','2024-03-31 00:00:00')"},
           // several statements
           {"Insert Into PARTS(EDITDT) Values('2024/03/31'); Insert Into PARTS(PARTNO) Values('2024/03/31')",
            "Insert Into PARTS(EDITDT) Values('2024-03-31 00:00:00'); Insert Into PARTS(PARTNO) "
            "Values('2024/03/31')"},
           {"Insert Into PARTS(EDITDT) Values('2024/03/31');",
            "Insert Into PARTS(EDITDT) Values('2024-03-31 00:00:00');"},
           // rows of a query
           {"Insert Into PARTS(PARTNO,EDITDT) Select '2024/03/31','2024/03/31' From STKTRANHD Where "
            "TRANDT='2024/03/31'",
            "Insert Into PARTS(PARTNO,EDITDT) Select '2024/03/31','2024-03-31 00:00:00' From STKTRANHD Where "
            "TRANDT='2024-03-31 00:00:00'"},
           {"Insert Into PARTS(EDITDT,PARTNO) Select Top 1 '2024/03/31' As A,'2024/03/31'",
            "Insert Into PARTS(EDITDT,PARTNO) Select '2024-03-31 00:00:00' As A,'2024/03/31' LIMIT 1"},
           {"Insert Into PARTS(EDITDT,PARTNO) Select PARTNO,('2024/03/31') From PARTS",
            "Insert Into PARTS(EDITDT,PARTNO) Select PARTNO,('2024/03/31') From PARTS"},
           // no column list
           {"Insert Into PARTS Values('a','2024/03/31',#2024/03/31#)",
            "Insert Into PARTS Values('a','2024/03/31','2024-03-31 00:00:00')"},
       })
    expect_both_ways(row.text, row.sqlite);
}

TEST(Insert, AsksForItsColumnsOnce) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  dialect.rewrite("Insert Into STKTRANHD (TRANNO,TRANDT) Values('1','2024/03/31')");
  EXPECT_EQ(columns.asked, 2U);
  for (int i = 0; i < 10; ++i)
    dialect.rewrite("Insert Into STKTRANHD (TRANNO,TRANDT) Values('2','2024/04/01')");
  dialect.rewrite("insert into stktranhd (tranno,TRANDT) Values('2','2024/04/01')");
  dialect.rewrite("Select * From STKTRANHD Where TRANDT='2024/03/31'");
  EXPECT_EQ(columns.asked, 2U);
}

TEST(Insert, AsksAgainOnceTheSchemaChanges) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  const std::string_view insert = "Insert Into STKTRANHD (TRANNO,TRANDT) Values('1','2024/03/31')";
  for (const std::string_view change :
       {"Create Table T(A)", "Drop Table T", "Alter Table T Add B", "; drop table T"}) {
    dialect.rewrite(insert);
    const std::size_t before = columns.asked;
    dialect.rewrite(change);
    dialect.rewrite(insert);
    EXPECT_EQ(columns.asked, before + 2) << change;
  }
}

TEST(Insert, WorksAgainAfterAFailedQuestion) {
  class FailingOnce : public StockColumns {
   public:
    bool is_date(std::string_view table, std::string_view column) override {
      if (!failed && column == "TRANDT") {
        failed = true;
        throw std::runtime_error("no connection");
      }
      return StockColumns::is_date(table, column);
    }
    bool failed = false;
  };
  FailingOnce columns;
  SqliteDialect dialect(columns);
  const std::string_view insert = "Insert Into STKTRANHD (TRANNO,TRANDT) Values('1','2024/03/31')";
  EXPECT_THROW(dialect.rewrite(insert), std::runtime_error);
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(dialect.rewrite(insert),
              "Insert Into STKTRANHD (TRANNO,TRANDT) Values('1','2024-03-31 00:00:00')");
}

TEST(Insert, KeepsItsHeadsApartWhenThereAreMany) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (int round = 0; round < 3; ++round)
    for (int i = 0; i < 40; ++i) {
      const std::string blanks(static_cast<std::size_t>(i), ' ');
      const std::string columns_text = i % 2 != 0 ? "(TRANNO,TRANDT)" : "(TRANDT,TRANNO)";
      const std::string head = "Insert Into STKTRANHD" + blanks + columns_text + "Values(";
      const std::string day = "'2024-03-31 00:00:00'";
      const std::string plain = "'2024/03/31'";
      EXPECT_EQ(dialect.rewrite(head + plain + "," + plain + ")"),
                head + (i % 2 != 0 ? plain + "," + day : day + "," + plain) + ")");
    }
}

TEST(Insert, IsNotTakenForTheOneBehindIt) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  const std::string first = "Insert Into PARTS(EDITDT) Values('2024/03/31')";
  const std::string rewritten_first = "Insert Into PARTS(EDITDT) Values('2024-03-31 00:00:00')";
  dialect.rewrite(first + ";Insert Into PARTS(PARTNO) Values('2024/03/31')");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(dialect.rewrite(first), rewritten_first);
}

TEST(Insert, ComesBackAsItIsWhenNothingChanges) {
  StockColumns columns;
  SqliteDialect dialect(columns);
  const std::string_view sql = "Insert Into STKTRANHD (TRANNO,TRANDT) Values('1','2024-03-31 00:00:00')";
  for (int i = 0; i < 2; ++i) EXPECT_EQ(dialect.rewrite(sql).data(), sql.data());
}

}  // namespace
}  // namespace tallyra::tests::dialect
