#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace tallyra::tests::dialect {
namespace {

TEST(Top, BecomesALimitAtTheEndOfItsSelect) {
  for (const Rewriting& row : {
           Rewriting{"Select TOP 5 * From PARTS", "Select * From PARTS LIMIT 5"},
           {"select top 5 A,B from PARTS where A=1 order by B desc",
            "select A,B from PARTS where A=1 order by B desc LIMIT 5"},
           {"Select  Top  5  * From PARTS  ", "Select  * From PARTS LIMIT 5  "},
           {"Select TOP (5) * From PARTS", "Select * From PARTS LIMIT 5"},
           {"Select TOP(5)A From PARTS", "Select A From PARTS LIMIT 5"},
           {"Select TOP 5* From PARTS", "Select * From PARTS LIMIT 5"},
           {"Select\tTOP\n5\r\n* From PARTS", "Select\t* From PARTS LIMIT 5"},
           {"Select Distinct Top 5 A From PARTS", "Select Distinct A From PARTS LIMIT 5"},
           {"Select All Top 5 A From PARTS", "Select All A From PARTS LIMIT 5"},
           {"Select/**/Top 5 A From PARTS", "Select/**/ A From PARTS LIMIT 5"},
           {"Select Top 5 A From PARTS -- top", "Select A From PARTS LIMIT 5 -- top"},
           {"Select Top 5 A From PARTS /* to the end", "Select A From PARTS LIMIT 5 /* to the end"},
           {"Select Top 5 A From PARTS;", "Select A From PARTS LIMIT 5;"},
           {"Select Top 1 A From T; Select Top 2 B From U",
            "Select A From T LIMIT 1; Select B From U LIMIT 2"},
           {"Select Top 5 'A', -1, T.* From T", "Select 'A', -1, T.* From T LIMIT 5"},
           {"Select Top 5 (A+B) From T", "Select (A+B) From T LIMIT 5"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

TEST(Top, BelongsToTheSelectItStandsInAtAnyDepth) {
  for (const Rewriting& row : {
           Rewriting{"Select * From T Where A In (Select Top 3 A From U Order By A)",
                     "Select * From T Where A In (Select A From U Order By A LIMIT 3)"},
           {"Select Top 2 * From (Select Top 3 * From (Select Top 4 * From T) X) Y Where Y.A=1",
            "Select * From (Select * From (Select * From T LIMIT 4) X LIMIT 3) Y Where Y.A=1 LIMIT 2"},
           {"Select (Select Top 1 A From U), B From T", "Select (Select A From U LIMIT 1), B From T"},
           {"Update T Set A=(Select Top 1 A From U) Where B=1",
            "Update T Set A=(Select A From U LIMIT 1) Where B=1"},
           {"Delete * From T Where A=(Select Top 1 A From U)",
            "Delete From T Where A=(Select A From U LIMIT 1)"},
           {"Insert Into T (A) Select Top 5 A From U", "Insert Into T (A) Select A From U LIMIT 5"},
           {"Insert Into T (A,B) Values ((Select Top 1 A From U),2)",
            "Insert Into T (A,B) Values ((Select A From U LIMIT 1),2)"},
           {"Select A From T Where Exists(Select Top 1 1 From U Where U.A=T.A) And B=2",
            "Select A From T Where Exists(Select 1 From U Where U.A=T.A LIMIT 1) And B=2"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

TEST(Top, OfAMemberOfAUnionLimitsThatMemberOnly) {
  for (const Rewriting& row : {
           Rewriting{"Select Top 1 A From T Union Select B From U",
                     "SELECT * FROM (Select A From T LIMIT 1) Union Select B From U"},
           {"Select A From T Union All Select Top 2 B From U Order By 1",
            "Select A From T Union All SELECT * FROM (Select B From U LIMIT 2) Order By 1"},
           {"Select A From T Where A In (Select Top 1 A From T Except Select Top 2 B From U)",
            "Select A From T Where A In (SELECT * FROM (Select A From T LIMIT 1) Except SELECT * FROM "
            "(Select B From U "
            "LIMIT 2))"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

TEST(Top, IsLeftAloneWhenNoLimitCanSayTheSame) {
  for (const std::string_view text : {
           "Select Top 5 Percent * From T",
           "Select Top (5) Percent * From T",
           "Select Top 5 With Ties A From T Order By A",
           "Select Top 2.5 * From T",
           "Select Top @n * From T",
           "Select Top -1 * From T",
           "Select Top (1+1) * From T",
       })
    EXPECT_EQ(rewritten(text), text);
}

TEST(Top, IsAlsoAnOrdinaryName) {
  for (const std::string_view text : {
           "Select top From T",
           "Select top, A From T",
           "Select T.top From T",
           "Select A top From T",
           "Select [top] 5 From T",
           "Select top(5), A From T",
           "Select top(5) As A From T",
           "Select top(5) From T",
           "Select top 5",
           "Select top",
           "Select top(",
           "Select top(5",
           "Select 'Select top 5 * From T', A From T",
           "Select A From top Where top=5",
           "-- Select top 5 * From T",
           "/* Select top 5 * From T */",
       })
    EXPECT_EQ(rewritten(text), text);
}

TEST(Top, KeepsALiteralThatIsNeverClosedLast) {
  EXPECT_EQ(rewritten("Select Top 1 A From T Where B='O'Brien'"),
            "Select A From T Where B='O'Brien LIMIT 1'");
}

}  // namespace
}  // namespace tallyra::tests::dialect
