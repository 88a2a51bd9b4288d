#include <cmath>

#include "tests/support/queries.h"
#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class IssuedOrReturned : public TransactionStage {
 protected:
  IssuedOrReturned() : TransactionStage("CTranDetail") {}
};
TALLYRA_ON_BOTH_KINDS(IssuedOrReturned);

const std::string created =
    "create ADODB.Connection\n"
    "C1.Open 'DSN=x' '' '' -1\n"
    "create ADODB.Recordset\n"
    "R1.CursorLocation = 2\n";
const Rows issued{{"PARTNO", "QTY"}, {{"P1", -5}}};
const Rows taken_back{{"TRANTYPE", "REFERENCE", "PARTNO", "QTY"}, {{"", "M1", "P1", 2}}};

TEST_P(IssuedOrReturned, TheKindChoosesTheStatementAndTheSignAndTheTypeTheLines) {
  const struct {
    const char* type;
    Value kind;
    double result;
    std::string calls;
  } rows[] = {
      {"STK020MISS", omitted, 3,
       asked(stage::issued_for_order("STK020MISS")) + asked(stage::returned_from_order("STK021RTN1"))},
      {"STK020MISS", "", 3,
       asked(stage::issued_for_order("STK020MISS")) + asked(stage::returned_from_order("STK021RTN1"))},
      {"STK020MISSSO", "", 3,
       asked(stage::issued_for_order("STK020MISSSO")) + asked(stage::returned_from_order("STK021RTNSO"))},
      {"STK021RTN1", "", 5,
       asked(stage::issued_for_order("STK021RTN1")) + asked(stage::returned_from_order(""))},
      {"stk020miss", "", 5,
       asked(stage::issued_for_order("stk020miss")) + asked(stage::returned_from_order(""))},
      {"STK020MISS", "STK020MISS", 5, asked(stage::issued_for_order("STK020MISS"))},
      {"STK020MISS", "STK020MISSSO", 5, asked(stage::issued_for_order("STK020MISS"))},
      {"STK020MISSSO", "STK020MISS", 5, asked(stage::issued_for_order("STK020MISSSO"))},
      {"other", "STK020MISS", 5, asked(stage::issued_for_order("other"))},
      {"STK020MISS", "STK021RTN1", -5, asked(stage::returned_from_order("STK020MISS"))},
      {"STK021RTN1", "STK021RTN1", 2, asked(stage::returned_from_order("STK021RTN1"))},
      {"STK021RTNSO", "STK021RTNSO", 2, asked(stage::returned_from_order("STK021RTNSO"))},
      {"STK021RTN1", "STK021RTNSO", 2, asked(stage::returned_from_order("STK021RTN1"))},
      {"STK020MISS", "stk020miss", 0, ""},
      {"STK020MISS", " ", 0, ""},
      {"STK020MISS", "STK010POREV", 0, ""},
  };
  for (const auto& [type, kind, result, calls] : rows) {
    Stage each(GetParam());
    each.finds(stage::issued_for_order(type), issued);
    each.finds(stage::returned_from_order("STK020MISS"), {{"QTY"}, {{-5}}});
    each.finds_nothing(stage::returned_from_order(""));
    for (const char* return_type : {"STK021RTN1", "STK021RTNSO"})
      each.finds(stage::returned_from_order(return_type), taken_back);
    EXPECT_EQ(issued_or_returned(each.client("CTranDetail"), "T1", "M1", "P1", type, kind),
              (Outcome{result, 0, ""}))
        << type << " " << stage::shown(kind);
    // The connection is let go, not closed.
    EXPECT_EQ(each.transcript(), created + calls);
    EXPECT_EQ(each.alive(), 0);
  }
}

TEST_P(IssuedOrReturned, OnlyTheFirstRowCounts) {
  stage.finds(stage::issued_for_order("STK020MISS"), {{"PARTNO", "QTY"}, {{"P1", -5}, {"P1", -7}}});
  stage.finds(stage::returned_from_order("STK021RTN1"), {{"PARTNO", "QTY"}, {{"P1", 2}, {"P1", 11}}});
  const struct {
    const char* type;
    const char* kind;
    double result;
  } rows[] = {{"STK020MISS", "", 3}, {"STK020MISS", "STK020MISS", 5}, {"STK021RTN1", "STK021RTN1", 2}};
  for (const auto& [type, kind, result] : rows)
    EXPECT_EQ(issued_or_returned(client(), "T1", "M1", "P1", type, kind), (Outcome{result, 0, ""})) << kind;
}

TEST_P(IssuedOrReturned, NothingFoundIsZeroInEveryBranch) {
  stage.all_find_nothing({stage::issued_for_order("STK020MISS"), stage::returned_from_order("STK020MISS"),
                          stage::returned_from_order("STK021RTN1")});
  for (const char* kind : {"", "STK020MISS", "STK020MISSSO", "STK021RTN1", "STK021RTNSO", "x"}) {
    const Object detail = client();
    const Value result = detail.call("IssuedOrRtnQty", "T1", "M1", "P1", "STK020MISS", kind);
    EXPECT_EQ(result, Value(0.0)) << kind;
    EXPECT_FALSE(std::signbit(automation::to_double(result))) << kind;
  }
}

TEST_P(IssuedOrReturned, OnlyReturnsWithoutIssuesAreNegative) {
  stage.finds(stage::returned_from_order("STK021RTN1"), taken_back)
      .finds_nothing(stage::issued_for_order("STK020MISS"));
  EXPECT_EQ(issued_or_returned(client(), "T1", "M1", "P1", "STK020MISS"), (Outcome{-2, 0, ""}));
}

TEST_P(IssuedOrReturned, LeavesTheErrorFieldsOfTheMethodBefore) {
  const Object detail = client();
  EXPECT_EQ(delete_line(detail, {}), refused(10000016));
  stage.finds(stage::issued_for_order("STK020MISS"), issued)
      .finds_nothing(stage::returned_from_order("STK021RTN1"));
  EXPECT_EQ(issued_or_returned(detail, "T1", "M1", "P1", "STK020MISS"),
            (Outcome{5, 10000016, "text of Msg10000016"}));
  stage.fails("C3.Open", Error(-2147217900, "bad"));
  EXPECT_EQ(issued_or_returned(detail, "T1", "M1", "P1", "STK020MISS"),
            (Outcome{0, 10000016, "text of Msg10000016"}));
}

TEST_P(IssuedOrReturned, AnErrorIsZeroAndLeavesNoTrace) {
  for (const char* failing : {"create ADODB.Connection", "C1.Open", "create ADODB.Recordset", "R1.Cursor",
                              "'STK020MISS'", "R1.Close", "'STK021RTN1'"}) {
    Stage each(GetParam());
    each.finds(stage::issued_for_order("STK020MISS"), issued)
        .finds(stage::returned_from_order("STK021RTN1"), taken_back);
    each.fails(failing, Error(-2147217900, "bad"));
    const Object detail = each.client("CTranDetail");
    EXPECT_EQ(issued_or_returned(detail, "T1", "M1", "P1", "STK020MISS"), (Outcome{0, 0, ""})) << failing;
    EXPECT_TRUE(each.transcript().ends_with(" ! bad\n"));
    EXPECT_EQ(each.alive(), 0);
  }
}

TEST_P(IssuedOrReturned, AQuantityThatIsNoNumberIsZeroToo) {
  for (const Value& quantity : {Value(Null{}), Value("much")}) {
    Stage each(GetParam());
    each.finds(stage::issued_for_order("STK020MISS"), {{"QTY"}, {{quantity}}});
    EXPECT_EQ(issued_or_returned(each.client("CTranDetail"), "T1", "M1", "P1", "STK020MISS"),
              (Outcome{0, 0, ""}));
  }
}

TEST_P(IssuedOrReturned, WritesItsArgumentsAsTheyStand) {
  const std::string query =
      "Select STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY From STKTRANDT Inner Join STKTRANHD "
      "On STKTRANDT.TRANNO=STKTRANHD.TRANNO  Where STKTRANDT.TRANNO<>'T'1' And "
      "STKTRANDT.REFERENCE='M 1 ' And STKTRANDT.PARTNO='it's' And STKTRANHD.TRANTYPE='STK020MISS' "
      "And STKTRANHD.STATUSSN<>3 Group By STKTRANDT.PARTNO";
  stage.finds_nothing(query);
  issued_or_returned(client(), "T'1", "M 1 ", "it's", "STK020MISS", "STK020MISS");
  EXPECT_TRUE(tells("R1.Open " + query + " | C1 3 1 -1"));
}

}  // namespace
}  // namespace tallyra::transactions_test
