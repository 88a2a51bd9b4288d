#include "tests/transcript/transactions/transaction_script.h"

namespace tallyra::transactions_test {
namespace {

class TranDetailRead : public TransactionStage {
 protected:
  TranDetailRead() : TransactionStage("CTranDetail") {}
};
TALLYRA_ON_BOTH_KINDS(TranDetailRead);

const std::string select =
    "Select STKTRANDT.*,PARTS.PARTNM,PARTS.CATEGORYNO,PARTS.CATEGORYNO,PARTS.COLORNO,PARTS.COLORNM,"
    "PARTS.UNITNM  From STKTRANDT INNER JOIN PARTS ON STKTRANDT.PARTNO=PARTS.PARTNO";

std::string by_number(const std::string& number) {
  return select + "  WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.SN=" + number;
}
const std::string by_part =
    select + " WHERE STKTRANDT.TRANNO='T1' AND STKTRANDT.REFERENCE='PO1' AND STKTRANDT.PARTNO='P1' ";

TEST_P(TranDetailRead, AddressesALineByNumberFromZeroOnAndElseByPart) {
  const struct {
    Value number;
    std::string query;
  } rows[] = {{0, by_number("0")},     {3, by_number("3")},   {2147483647, by_number("2147483647")},
              {"12", by_number("12")}, {2.5, by_number("2")}, {-1, by_part},
              {-2147483647, by_part},  {omitted, by_part}};
  for (const auto& [number, query] : rows) {
    Stage each(GetParam());
    each.finds(query, {{"TRANNO", "SN", "PARTNM"}, {{"T1", 3, "Bolt"}, {"T1", 4, "Nut"}}});
    Fields collections{{"X", 1}};
    EXPECT_EQ(read_line(each.client("CTranDetail"), {.number = number}, collections), done)
        << stage::shown(number) << each.transcript();
    EXPECT_EQ(collections.text(), "TRANNO='T1' SN=3 PARTNM='Bolt'");
    EXPECT_EQ(each.database_calls(),
              "C1.Open 'DSN=x' '' '' -1\n"
              "R1.CursorLocation = 2\n"
              "R1.Open " +
                  query +
                  " | C1 3 1 -1\n"
                  "R1.MoveLast\n"
                  "R1.MoveFirst\n"
                  "R1.Close\n"
                  "C1.Close\n");
  }
}

TEST_P(TranDetailRead, GivesEmptyCollectionsForAMissingLine) {
  stage.finds_nothing(by_number("1"));
  EXPECT_EQ(read_line(client(), {.number = 1}, fields), (Outcome{100, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(fields.text(), "");
}

TEST_P(TranDetailRead, HandsBothCategoriesBack) {
  stage.finds(by_part, {{"PARTNO", "CATEGORYNO", "CATEGORYNO"}, {{"P1", "C", "C"}}});
  EXPECT_EQ(read_line(client(), {}, fields), done);
  EXPECT_EQ(fields.text(), "PARTNO='P1' CATEGORYNO='C' CATEGORYNO='C'");
}

TEST_P(TranDetailRead, ANumberThatIsNoneNeverReachesTheMethod) {
  for (const auto& [number, error] :
       {std::pair{Value("x"), 13}, std::pair{Value(3e9), 6}, std::pair{Value(Null{}), 13}}) {
    try {
      read_line(client(), {.number = number}, fields);
      ADD_FAILURE() << stage::shown(number);
    } catch (const Error& raised) {
      EXPECT_EQ(raised.number(), error);
    }
  }
  EXPECT_EQ(stage.transcript(), "");
}

}  // namespace
}  // namespace tallyra::transactions_test
