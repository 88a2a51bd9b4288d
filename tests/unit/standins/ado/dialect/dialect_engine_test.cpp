#include <gtest/gtest.h>

#include <string>

#include "standins/ado/dialect/sqlite_dialect.h"
#include "tests/unit/standins/ado/dialect/component_statements.h"
#include "tests/unit/standins/ado/dialect/engine.h"
#include "tests/unit/standins/ado/dialect/stock_columns.h"

namespace tallyra::tests::dialect {
namespace {

// A database whose statements go through the dialect.
class RewrittenForSqlite : public testing::Test {
 protected:
  std::string run(std::string_view sql) { return engine_.run(dialect_.rewrite(sql)); }

  // Both forms of a statement whose date literals are delimited by @.
  std::string run_both(std::string_view sql, std::string_view then) {
    std::string outcomes;
    for (const char delimiter : {'#', '\''}) {
      fill();
      outcomes += run(in_form(sql, delimiter));
      if (!then.empty()) outcomes += run(then);
      outcomes += delimiter == '#' ? " / " : "";
      engine_.roll_back();
    }
    return outcomes;
  }

  void fill() {
    for (const std::string_view sql : {
             "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,REFERENCE,TRANDT) "
             "Values('H1','STK027CLOSE',0,'C1',#2024/04/01#)",
             "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,REFERENCE,TRANDT) "
             "Values('H2','STKCLOSEALL',0,'C1',#2024/04/01#)",
             "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,REFERENCE,TRANDT) "
             "Values('H3','STK027CLOSE',1,'C2','2024/5/1')",
             "Insert Into STKTRANHD(TRANNO,TRANTYPE,STATUSSN,REFERENCE,TRANDT) "
             "Values('H4','STKCHECKISS',1,'C1',"
             "'2024-03-31 14:05:09')",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H1',0,'P1',1)",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H1',0,'P2',2)",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H2',0,'P1',3)",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H3',0,'P1',4)",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H4',0,'P1',5)",
             "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('H9',0,'P1',6)",
             "Insert Into STKCLOSEHD(CLOSEDT,STATUSSN) Values('2024/01/31',1)",
             "Insert Into STKCLOSEHD(CLOSEDT,STATUSSN) Values(#2024/02/29#,0)",
             "Insert Into STKCLOSEHD(CLOSEDT,STATUSSN) Values(#3/31/2024#,0)",
         })
      ASSERT_EQ(run(sql), "") << sql;
  }

  static constexpr std::string_view headers = "Select TRANNO From STKTRANHD Order By TRANNO";
  static constexpr std::string_view lines = "Select TRANNO,PARTNO From STKTRANDT Order By TRANNO,PARTNO";
  static constexpr std::string_view closes = "Select CLOSEDT,STATUSSN From STKCLOSEHD Order By CLOSEDT";

  Engine engine_;

 private:
  StockColumns columns_;
  standins::ado::dialect::SqliteDialect dialect_{columns_};
};

TEST_F(RewrittenForSqlite, DatesAreStoredInOneForm) {
  fill();
  EXPECT_EQ(run("Select Distinct TRANDT From STKTRANHD Order By TRANDT"),
            "2024-03-31 14:05:09 2024-04-01 00:00:00 2024-05-01 00:00:00");
}

TEST_F(RewrittenForSqlite, DatesCompareAsDates) {
  struct Row {
    std::string_view condition;
    std::string_view headers;
  };
  for (const Row& row : {
           Row{"TRANDT=@2024/04/01@", "H1 H2"},
           {"TRANDT=@2024-4-1@", "H1 H2"},
           {"TRANDT=@4/1/2024@", "H1 H2"},
           {"TRANDT>@2024/03/31@", "H1 H2 H3 H4"},
           {"TRANDT<=@2024/03/31@", ""},
           {"TRANDT<=@2024/03/31 14:05:09@", "H4"},
           {"TRANDT<@2024/03/31 14:05:09@", ""},
           {"STKTRANHD.TRANDT>@2024/03/31 14:05:09@ AND STKTRANHD.TRANDT<=@2024/04/30@", "H1 H2"},
           {"TRANDT Between @2024/03/31@ And @2024/04/01@", "H1 H2 H4"},
           {"TRANDT In (@2024/05/01@,@2024/03/31 14:05:09@)", "H3 H4"},
           {"@2024/05/01@=TRANDT", "H3"},
           {"TRANDT=(Select Max(TRANDT) From STKTRANHD Where TRANDT<@2024/05/01@)", "H1 H2"},
       }) {
    std::string sql = "Select TRANNO From STKTRANHD Where ";
    sql.append(row.condition).append(" Order By TRANNO");
    const std::string rows(row.headers);
    EXPECT_EQ(run_both(sql, ""), rows + " / " + rows) << sql;
  }
}

TEST_F(RewrittenForSqlite, TopLimitsItsOwnSelect) {
  struct Row {
    std::string_view sql;
    std::string_view rows;
  };
  fill();
  for (const Row& row : {
           Row{"Select TOP 2 TRANNO From STKTRANHD Order By TRANNO Desc", "H4 H3"},
           {"Select Top 1 * From STKCLOSEHD Where CLOSEDT<'2024/03/31' Order By CLOSEDT DESC",
            "2024-02-29 00:00:00|0|Null|Null"},
           {"Select top 1 TRANNO From STKTRANHD Where TRANNO='none'", ""},
           {"Select Distinct Top 1 REFERENCE From STKTRANHD Order By REFERENCE Desc", "C2"},
           {"Select TRANNO From STKTRANHD Where TRANDT=(Select Top 1 TRANDT From STKTRANHD Order By TRANDT)",
            "H4"},
           {"Select Count(*) From (Select Top 3 * From STKTRANDT) X", "3"},
           {"Select Top 1 TRANNO From STKTRANHD Union All Select PARTNO From STKTRANDT Where TRANNO='H1' "
            "Order By 1",
            "H1 P1 P2"},
           {"Select PARTNO From STKTRANDT Where TRANNO='H1' Union All Select Top 1 TRANNO From STKTRANHD "
            "Order By 1 Desc",
            "P2 P1 H1"},
       })
    EXPECT_EQ(run(row.sql), row.rows) << row.sql;
}

TEST_F(RewrittenForSqlite, DeletesTakeTheMeantRowsAndNoOthers) {
  struct Row {
    std::string_view sql;
    std::string_view then;
    std::string_view rows;
  };
  constexpr std::string_view all_lines = "H1|P1 H1|P2 H2|P1 H3|P1 H4|P1 H9|P1";
  for (const Row& row : {
           Row{"Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
               "Where "
               "STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
               lines, "H2|P1 H3|P1 H4|P1 H9|P1"},
           {"Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
            "Where "
            "STKTRANHD.TRANDT=@2024/04/01@ AND (STKTRANHD.TRANTYPE='STK027CLOSE' OR "
            "STKTRANHD.TRANTYPE='STKCLOSEALL') ",
            lines, "H3|P1 H4|P1 H9|P1"},
           {"Delete * From STKTRANHD Where  STKTRANHD.TRANDT=@2024/04/01@ AND  "
            "(STKTRANHD.TRANTYPE='STK027CLOSE' OR "
            "STKTRANHD.TRANTYPE='STKCLOSEALL') ",
            headers, "H3 H4"},
           {"Delete STKTRANDT.* From STKTRANDT INNER JOIN STKTRANHD ON STKTRANDT.TRANNO=STKTRANHD.TRANNO "
            "WHERE "
            "STKTRANHD.TRANTYPE='STKCHECKISS' AND STKTRANHD.REFERENCE='C1'",
            lines, "H1|P1 H1|P2 H2|P1 H3|P1 H9|P1"},
           {"Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STK027CLOSE' AND STKTRANHD.STATUSSN=0",
            headers, "H2 H3 H4"},
           {"Delete * From STKCLOSEHD Where CLOSEDT=@2024/03/31@", closes,
            "2024-01-31 00:00:00|1 2024-02-29 00:00:00|0"},
           {"Update STKCLOSEHD Set STATUSSN=1 Where CLOSEDT<@2024/03/31@ And STATUSSN<1", closes,
            "2024-01-31 00:00:00|1 2024-02-29 00:00:00|1 2024-03-31 00:00:00|0"},
           {"Delete D From STKTRANDT D Inner Join STKTRANHD H On D.TRANNO=H.TRANNO Where "
            "H.TRANDT>=@2024/04/01@",
            lines, "H4|P1 H9|P1"},
           {"Delete STKTRANDT From STKTRANDT Where STKTRANDT.TRANNO='H9'", lines,
            "H1|P1 H1|P2 H2|P1 H3|P1 H4|P1"},
           {"Delete STKTRANDT.* From (STKTRANDT Inner Join STKTRANHD On (STKTRANDT.TRANNO=STKTRANHD.TRANNO)) "
            "Left Join "
            "PARTS On STKTRANDT.PARTNO=PARTS.PARTNO Where STKTRANHD.TRANNO='H3'",
            lines, "H1|P1 H1|P2 H2|P1 H4|P1 H9|P1"},
           {"Delete STKTRANDT.* From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO "
            "Where 1=0",
            lines, all_lines},
       })
    EXPECT_EQ(run_both(row.sql, row.then), std::string(row.rows) + " / " + std::string(row.rows)) << row.sql;
}

TEST_F(RewrittenForSqlite, UnsoundDeletesAreRefusedAndTakeNothing) {
  const std::string join = "From STKTRANDT Inner Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO ";
  for (const std::string& sql : {
           "Delete REVADDR.* " + join,
           "Delete STKTRANDT.* " + join + "Where (STKTRANHD.TRANNO='H1'",
           "Delete STKTRANDT.* " + join + "Where STKTRANHD.TRANNO='H1') Or (1=1",
           "Delete STKTRANDT.* " + join + "Where STKTRANHD.TRANNO='H1' Union Select rowid From STKTRANDT",
           "Delete STKTRANDT.* " + join + "Where STKTRANHD.TRANNO='O'Brien'",
           "Delete STKTRANDT.* " + join + "Where STKTRANHD.TRANNO='H1",
           std::string("Delete STKTRANDT.* From STKTRANDT D Inner Join STKTRANHD H On D.TRANNO=H.TRANNO"),
       }) {
    fill();
    EXPECT_TRUE(run(sql).starts_with("!")) << sql;
    EXPECT_EQ(run("Select Count(*) From STKTRANDT"), "6") << sql;
    engine_.roll_back();
  }
}

TEST_F(RewrittenForSqlite, TextStaysTextWhateverItLooksLike) {
  fill();
  ASSERT_EQ(
      run("Insert Into STKSHIPNOTE(TRANNO,NOTES) Values('2024/03/31','Select top 1 #2024/03/31# -- it''s')"),
      "");
  EXPECT_EQ(run("Select NOTES From STKSHIPNOTE Where TRANNO='2024/03/31'"),
            "Select top 1 #2024/03/31# -- it's");
}

TEST_F(RewrittenForSqlite, TheEngineNamesTheRealMistake) {
  const std::string outcome =
      run("Select Top 1 * From STKTRANHD Where TRANNO='O'Brien' And TRANDT>#2024/03/31#");
  EXPECT_NE(outcome.find("Brien"), std::string::npos) << outcome;
}

}  // namespace
}  // namespace tallyra::tests::dialect
