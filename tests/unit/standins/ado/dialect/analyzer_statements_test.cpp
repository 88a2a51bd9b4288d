#include <gtest/gtest.h>

#include "tests/unit/standins/ado/dialect/rewriting.h"

namespace tallyra::tests::dialect {
namespace {

TEST(Delete, LosesTheStarOrTheTableBeforeFrom) {
  for (const Rewriting& row : {
           Rewriting{"Delete * From STKTRANHD Where TRANNO='1'", "Delete From STKTRANHD Where TRANNO='1'"},
           {"DELETE  *  FROM T", "DELETE  FROM T"},
           {"Delete*From T", "Delete From T"},
           {"Delete T.* From T Where A=1", "Delete From T Where A=1"},
           {"Delete T From T Where A=1", "Delete From T Where A=1"},
           {"Delete [T].* From T", "Delete From T"},
           {"Delete * From T; Delete * From U", "Delete From T; Delete From U"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

TEST(Delete, OverAJoinPicksTheRowsBySubquery) {
  for (const Rewriting& row : {
           Rewriting{
               "Delete T.* From T Inner Join U On T.A=U.A Where U.B=1",
               "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From T Inner Join U On T.A=U.A "
               "Where U.B=1)"},
           {"Delete T From T Inner Join U On T.A=U.A",
            "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From T Inner Join U On T.A=U.A)"},
           {"Delete U.* From T, U Where T.A=U.A;  ",
            "Delete FROM U AS doomed WHERE doomed.rowid IN (SELECT U.rowid From T, U Where T.A=U.A);  "},
           {"Delete x From STKTRANDT As X Inner Join U y On X.A=y.A -- end",
            "Delete FROM STKTRANDT AS doomed WHERE doomed.rowid IN (SELECT x.rowid From STKTRANDT As X Inner "
            "Join U y "
            "On X.A=y.A) -- end"},
           {"Delete X From T X Where X.A=1",
            "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT X.rowid From T X Where X.A=1)"},
           {"Delete[T].*From[T]Inner Join U On T.A=U.A",
            "Delete FROM [T] AS doomed WHERE doomed.rowid IN (SELECT [T].rowid From[T]Inner Join U On "
            "T.A=U.A)"},
           {"Delete T.* From (T Inner Join U On (T.A=U.A)) Inner Join V On U.B=V.B",
            "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From (T Inner Join U On "
            "(T.A=U.A)) Inner "
            "Join V On U.B=V.B)"},
           {"Delete T.* From main.T Inner Join U On T.A=U.A",
            "Delete FROM main.T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From main.T Inner Join U On "
            "T.A=U.A)"},
           {"Delete T.* From T Inner Join (Select Top 1 A From U Order By A) V On T.A=V.A",
            "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From T Inner Join (Select A From "
            "U Order By A "
            "LIMIT 1) V On T.A=V.A)"},
       })
    EXPECT_EQ(rewritten(row.text), row.sqlite) << row.text;
}

// Each would, wrapped into a subquery, delete rows that the statement does not mean.
TEST(Delete, OverAJoinIsLeftToTheEngineWhenItIsNotSound) {
  for (const std::string_view text : {
           "Delete V.* From T Inner Join U On T.A=U.A",
           "Delete T.* From T X Inner Join U On X.A=U.A",
           "Delete T.* From T Inner Join T On 1=1",
           "Delete X.* From (Select * From T) X Inner Join U On X.A=U.A",
           "Delete T.*, U.* From T Inner Join U On T.A=U.A",
           "Delete T.* From T Inner Join U On T.A=U.A Where (U.B=1",
           "Delete T.* From T Inner Join U On T.A=U.A Where U.B=1)",
           "Delete T.* From T Inner Join U On T.A=U.A Where U.B=1) Or (1=1",
           "Delete T.* From T Inner Join U On T.A=U.A Union Select rowid From T",
           "Delete T.* From T Inner Join U On T.A=U.A Group By T.A",
           "Delete T.* From T Inner Join U On T.A=U.A Limit 5",
           "Delete T.* From",
           "Delete T.*",
           "Delete *",
           "Delete T From",
           "Delete",
           "Delete From T",
           "Delete From T Where A=1",
           "Delete Top (5) From T",
       })
    EXPECT_EQ(rewritten(text), text);
}

TEST(Delete, OverAJoinStaysAnErrorWhenALiteralIsNeverClosed) {
  EXPECT_EQ(rewritten("Delete T.* From T Inner Join U On T.A=U.A Where U.B='x"),
            "Delete FROM T AS doomed WHERE doomed.rowid IN (SELECT T.rowid From T Inner Join U On T.A=U.A "
            "Where U.B=)'x");
}

TEST(Delete, IsOnlyTheFirstWordOfAStatement) {
  for (const std::string_view text :
       {"Select Delete * From T", "Select 'Delete * From T'", "Select T.Delete * 2 From T"})
    EXPECT_EQ(rewritten(text), text);
}

}  // namespace
}  // namespace tallyra::tests::dialect
