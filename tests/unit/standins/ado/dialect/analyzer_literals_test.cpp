#include <gtest/gtest.h>

#include <string>

#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace tallyra::tests::dialect {
namespace {

using standins::ado::dialect::SqliteDialect;

// `?` stands for '2024/03/31', which must become '2024-03-31 00:00:00', `!` for one that must stay.
std::string with_dates(std::string_view text, std::string_view first) {
  std::string filled;
  for (const char c : text) {
    if (c == '?')
      filled += first;
    else if (c == '!')
      filled += "'2024/03/31'";
    else
      filled += c;
  }
  return filled;
}

void expect_dates(std::string_view text) {
  EXPECT_EQ(rewritten(with_dates(text, "'2024/03/31'")), with_dates(text, "'2024-03-31 00:00:00'")) << text;
}

TEST(QuotedDate, IsADateBesideADateColumn) {
  for (const std::string_view text : {
           "Select * From STKTRANHD Where TRANDT=?",
           "Select * From STKTRANHD Where TRANDT <> ? And TRANDT<? And TRANDT > ? And TRANDT<=? And "
           "TRANDT>=?",
           "Select * From STKTRANHD Where trandt=?",
           "Select * From STKTRANHD Where STKTRANHD.TRANDT=?",
           "Select * From STKTRANHD Where [TRANDT]=? Or \"TRANDT\"=? Or [STKTRANHD].[TRANDT]=?",
           "Select * From dbo.STKTRANHD Where dbo.STKTRANHD.TRANDT=?",
           "Select * From STKTRANHD Where ?=TRANDT Or ? <= STKTRANHD.TRANDT",
           "Select * From STKTRANHD Where TRANDT Between ? And ? And TRANNO=!",
           "Select * From STKTRANHD Where TRANDT Not Between ? And ? Or TRANNO Between ! And !",
           "Select * From STKTRANHD Where TRANDT Between ? And ? And ! And TRANDT=?",
           "Select * From STKTRANHD Where TRANDT Between STATUSDT And ?",
           "Select * From STKTRANHD Where ? Between TRANDT And EDITDT",
           "Select * From STKTRANHD Where TRANDT In (?,?, ? ) And TRANNO In (!,!)",
           "Select * From STKTRANHD Where STKTRANHD.TRANDT Not In (?)",
           "Select * From STKTRANHD Where ? In (TRANDT,EDITDT)",
           "Select * From STKTRANHD Where (TRANDT)=? And ((STKTRANHD.TRANDT)>?)",
           "Select * From STKTRANHD Where ?<(TRANDT)",
           "Select TRANNO From STKTRANHD Group By TRANNO Having Max(TRANDT)>? And ?>Min(TRANDT)",
           "Select TRANDT>? From STKTRANHD",
           "Update STKTRANHD Set TRANDT=?, NOTES=!, EDITDT = ? Where ADDDT<?",
           "Delete From STKTRANHD Where TRANDT=?",
       })
    expect_dates(text);
}

TEST(QuotedDate, IsTextBesideAnythingElse) {
  for (const std::string_view text : {
           "Select * From STKTRANHD Where TRANNO=!",
           "Select * From STKTRANHD Where PARTS.EDITDT=!",
           "Select * From STKTRANDT Where TRANDT=!",
           "Select TRANDT From STKTRANHD Where TRANNO=! And STATUSSN=1",
           "Select ! From STKTRANHD",
           "Select ! As TRANDT From STKTRANHD",
           "Select * From STKTRANHD Where TRANDT=!||'x'",
           "Select * From STKTRANHD Where TRANDT=!+1",
           "Select * From STKTRANHD Where TRANDT||'x'=!",
           "Select * From STKTRANHD Where 'x'||TRANDT=!",
           "Select * From STKTRANHD Where 'x'||!=TRANDT",
           "Select * From STKTRANHD Where !=TRANDT||'x'",
           "Select * From STKTRANHD Where Year(TRANDT)=! And !=Year(TRANDT)",
           "Select * From STKTRANHD Where (NOTES||TRANDT)=!",
           "Select * From STKTRANHD Where TRANDT Like !",
           "Select * From STKTRANHD Where TRANDT In (Select NOTES From STKTRANHD Where NOTES=!)",
           "Select * From STKTRANHD Where TRANDT=Format(!)",
           "Select * From STKTRANHD Where TRANDT='2024-03-31 00:00:00'",
           "Update STKTRANHD Set NOTES=! Where TRANNO=!",
           "Update STKTRANHD Set TRANDT=Null, NOTES=!",
           "Select * From REVADDR Where NOTES Is Distinct From PARTS And EDITDT=!",
       }) {
    const std::string sql = with_dates(text, "");
    EXPECT_EQ(rewritten(sql), sql);
  }
}

TEST(QuotedDate, FindsTheTableOfItsColumn) {
  for (const std::string_view text : {
           "Select * From STKTRANHD H Where H.TRANDT=? And H.TRANNO=!",
           "Select * From STKTRANHD As H Where H.TRANDT=?",
           "Select * From STKTRANHD [H] Where [H].TRANDT=? And h.TRANDT=?",
           "Select * From STKTRANDT D Inner Join STKTRANHD H On D.TRANNO=H.TRANNO And H.TRANDT=? Where "
           "D.TRANDT=!",
           "Select * From STKTRANDT D, STKTRANHD H Where D.TRANNO=H.TRANNO And H.TRANDT=? And TRANDT=?",
           "Select * From STKTRANDT Left Join STKTRANHD On STKTRANDT.TRANNO=STKTRANHD.TRANNO Where TRANDT=?",
           "Select * From (STKTRANDT D Inner Join STKTRANHD H On (D.TRANNO=H.TRANNO)) Inner Join PARTS On "
           "D.PARTNO=PARTS.PARTNO Where H.TRANDT=? And PARTS.EDITDT=? And D.EDITDT=? And D.TRANDT=!",
           // The alias hides the name.
           "Select * From STKTRANHD H Where STKTRANHD.TRANDT=!",
           // The same alias means another table elsewhere.
           "Select * From PARTS X Where X.TRANDT=! And X.PARTNO In (Select X.PARTNO From STKTRANHD X Where "
           "X.TRANDT=?)",
           "Select * From STKTRANHD X Where X.TRANNO In (Select PARTNO From PARTS X Where X.TRANDT=!) And "
           "X.TRANDT=?",
           // A subquery sees the tables around it, but they do not see its tables.
           "Select * From STKTRANHD H Where Exists(Select 1 From STKTRANDT Where H.TRANDT=? And TRANDT=?)",
           "Select * From PARTS Where PARTNO In (Select PARTNO From STKTRANHD) And TRANDT=!",
           "Select * From (Select * From STKTRANHD Where TRANDT=?) X Where X.TRANDT=? And TRANDT=? And "
           "X.NOTES=!",
           "Select * From (Select * From (Select * From STKTRANHD) Y) As X Where X.TRANDT=?",
           "Select A From PARTS Where TRANDT=! Union Select A From STKTRANHD Where TRANDT=?",
           "Select * From PARTS Where TRANDT=!; Select * From STKTRANHD Where TRANDT=?",
           "Update PARTS Set EDITDT=? From STKTRANHD H Where H.TRANDT=? And TRANDT=?",
       })
    expect_dates(text);
}

TEST(QuotedText, ThatIsNoDateBesideADateColumnIsToldAndLeftAlone) {
  struct Row {
    std::string_view text;
    std::string_view no_date;
  };
  StockColumns columns;
  SqliteDialect dialect(columns);
  for (const Row& row : {
           Row{"Select * From STKCLOSEHD Where CLOSEDT>='2024/02/30'", "'2024/02/30'"},
           {"Select * From STKCLOSEHD Where CLOSEDT>='31/01/2024'", "'31/01/2024'"},
           {"Select * From STKTRANHD Where TRANDT='2024/03/31 x' And EDITDT='y'", "'2024/03/31 x'"},
           {"Select * From STKTRANHD Where TRANDT='2024/03/31' And EDITDT='it''s'", "'it''s'"},
           {"Select * From STKTRANHD Where TRANDT='14:05:09'", "'14:05:09'"},
           {"Select * From STKTRANHD Where TRANDT In ('x','2024/03/31')", "'x'"},
           {"Select * From STKTRANHD Where TRANDT Between '2024/03/31' And '2024/03/32'", "'2024/03/32'"},
           {"Select * From STKTRANHD H Where 'x'<H.TRANDT", "'x'"},
           {"Select TRANNO From STKTRANHD Group By TRANNO Having Max(TRANDT)>'x'", "'x'"},
           {"Update STKTRANHD Set TRANDT='x' Where TRANNO='T1'", "'x'"},
           {"Insert Into STKTRANHD(TRANNO,TRANDT) Values('T1','x')", "'x'"},
           {"Insert Into STKTRANHD(TRANNO,TRANDT) Select 'T1','x' From PARTS", "'x'"},
           {"Select * From PARTS Where EDITDT='x'; Select * From PARTS", "'x'"},
           // No column of dates is met.
           {"Select * From STKTRANHD Where TRANNO='x' And TRANDT=NOTES||'x'", ""},
           {"Select * From STKTRANHD Where TRANDT Like 'x' Or TRANDT=Format('x')", ""},
           {"Select * From STKTRANHD Where TRANNO In ('x') And PARTS.EDITDT='x'", ""},
           {"Insert Into STKTRANHD(TRANNO,TRANDT) Values('x',Null)", ""},
           {"Insert Into STKTRANHD Values('x','x')", ""},
       }) {
    for (int round = 0; round < 2; ++round) {
      const std::string_view sqlite = dialect.rewrite(row.text);
      EXPECT_EQ(dialect.no_date(), row.no_date) << row.text;
      const bool has_date = row.text.find("'2024/03/31'") != std::string_view::npos;
      EXPECT_EQ(sqlite == row.text, !has_date) << row.text;
    }
    dialect.rewrite("Select 1");
    EXPECT_EQ(dialect.no_date(), "");
  }
}

TEST(QuotedText, OfNothingButBlanksIsTheFirstDayOf1900BesideADateColumn) {
  for (const Rewriting& row : {
           Rewriting{"Select * From STKCLOSEHD Where CLOSEDT>=''",
                     "Select * From STKCLOSEHD Where CLOSEDT>='1900-01-01 00:00:00'"},
           {"Update STKTRANHD Set TRANDT='  ', NOTES=''",
            "Update STKTRANHD Set TRANDT='1900-01-01 00:00:00', NOTES=''"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite);
}

TEST(HashDate, IsADateAnywhere) {
  for (const Rewriting& row : {
           Rewriting{"Select #2024/3/31#", "Select '2024-03-31 00:00:00'"},
           {"Select * From T Where F(A,#2024/03/31 14:05#)>B",
            "Select * From T Where F(A,'2024-03-31 14:05:00')>B"},
           {"Select * From T Where A Between#2024/01/01#And#2024/01/31#",
            "Select * From T Where A Between'2024-01-01 00:00:00'And'2024-01-31 00:00:00'"},
           {"Delete * From STKTRANHD Where TRANDT Between #2024-3-1# And '2024/3/31'",
            "Delete From STKTRANHD Where TRANDT Between '2024-03-01 00:00:00' And '2024-03-31 00:00:00'"},
           {"Select #3/31/2024#+1", "Select '2024-03-31 00:00:00'+1"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

TEST(HashDate, IsNoDateWhenItDoesNotExistOrStandsInALiteral) {
  for (const std::string_view text : {
           "Select #2024/02/30#",
           "Select #14:05:09#",
           "Select # 2024",
           "Select A# From T Where B#=1",
           "Select * From STKTRANHD Where NOTES='#2024/03/31#'",
           "Select * From STKTRANHD Where NOTES='it''s #2024/03/31# -- top /*'",
           "Select [#2024/03/31#], \"#2024/03/31#\", `#2024/03/31#` From T",
           "Select A -- #2024/03/31#\n From T /* #2024/03/31# */",
       })
    EXPECT_EQ(rewritten(text), text);
}

}  // namespace
}  // namespace tallyra::tests::dialect
