#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

using stage::done;

class ReturnLines : public Company {
 protected:
  ReturnLines() {
    given({"Insert Into SUPPLIERS(SUPPLIERS) Values('S1')",
           "Insert Into STKTRANHD(TRANNO,TRANTYPE,DEPTNOTO) Values('R1','STK011PORTN','S1')",
           "Insert Into STKTRANHD(TRANNO,TRANTYPE,DEPTNOTO) Values('R2','STK011PORTN','CUSTOMER')",
           "Insert Into STKTRANHD(TRANNO,TRANTYPE,DEPTNOTO,STATUSSN) Values('T1','STK010POREV','S1',0)",
           "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('T1',1,'RECEIVED',10)",
           "Insert Into STKTRANHD(TRANNO,TRANTYPE,DEPTNOTO) Values('T2','STK020MISS','S1')",
           "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY) Values('T2',1,'ISSUED',10)"});
  }
  void given_lines(int count) const {
    std::vector<std::string> statements{"Begin"};
    for (int sn = 1; sn <= count; ++sn)
      statements.emplace_back(
          "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('R1','PO1'," +
          std::to_string(sn) + ",'P" + std::to_string(sn) + "',-1,'OWEN')");
    statements.emplace_back("Commit");
    given(statements);
  }
  static Fields line(int sn, const char* part) {
    return {{"TRANNO", "R1"}, {"REFERENCE", "PO1"}, {"SN", sn}, {"PartNo", part}, {"QTY", -9}};
  }
  Outcome insert(int sn, const char* part, const Value& check = omitted) const {
    Fields fields = line(sn, part);
    return insert_return(detail(), "R1", sn, fields, check);
  }
  std::string numbers() const {
    return rows("Select SN,PARTNO From STKTRANDT Where TRANNO='R1' Order By SN,PARTNO");
  }
};
TALLYRA_ON_BOTH_KINDS(ReturnLines);

TEST_P(ReturnLines, AreAddedAtTheEndWithoutRenumbering) {
  given_lines(2);
  EXPECT_EQ(insert(3, "NEW"), done);
  EXPECT_EQ(numbers(), "1|P1\n2|P2\n3|NEW\n");
}

TEST_P(ReturnLines, MoveUpForALineAtTheBeginning) {
  given_lines(3);
  EXPECT_EQ(insert(1, "NEW"), done);
  EXPECT_EQ(numbers(), "1|NEW\n2|P1\n3|P2\n4|P3\n");
}

TEST_P(ReturnLines, MoveUpFromTheGapOnlyAndWhateverTheirReference) {
  given_lines(4);
  given({"Update STKTRANDT Set REFERENCE='PO9' Where TRANNO='R1' And SN=4"});
  EXPECT_EQ(insert(3, "NEW"), done);
  EXPECT_EQ(numbers(), "1|P1\n2|P2\n3|NEW\n4|P3\n5|P4\n");
  EXPECT_EQ(rows("Select TRANNO,SN From STKTRANDT Where TRANNO<>'R1' Order By TRANNO"), "T1|1\nT2|1\n");
}

TEST_P(ReturnLines, FillAHoleWithoutMoving) {
  given_lines(4);
  given({"Delete From STKTRANDT Where TRANNO='R1' And SN=2"});
  EXPECT_EQ(insert(2, "NEW"), done);
  EXPECT_EQ(numbers(), "1|P1\n2|NEW\n3|P3\n4|P4\n");
}

TEST_P(ReturnLines, MoveUpByTheThousand) {
  given_lines(1000);
  EXPECT_EQ(insert(1, "NEW"), done);
  EXPECT_EQ(rows("Select Count(*),Min(SN),Max(SN),Count(Distinct SN) From STKTRANDT Where TRANNO='R1'"),
            "1001|1|1001|1001\n");
  EXPECT_EQ(rows("Select PARTNO From STKTRANDT Where TRANNO='R1' And SN=1001"), "P1000\n");
}

TEST_P(ReturnLines, StayWhereTheyWereWhenTheNewLineIsRefused) {
  given_lines(3);
  refuse("INSERT", "STKTRANDT", "", "no more lines");
  const Outcome outcome = insert(1, "NEW");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("no more lines"), std::string::npos);
  EXPECT_EQ(numbers(), "1|P1\n2|P2\n3|P3\n");
}

TEST_P(ReturnLines, StayWhereTheyWereWhenTheHighestNumberIsReached) {
  given_lines(2);
  given({"Update STKTRANDT Set SN=32766 Where TRANNO='R1' And SN=2"});
  EXPECT_EQ(insert(1, "NEW"), done);
  EXPECT_EQ(numbers(), "1|NEW\n2|P1\n32767|P2\n");
  EXPECT_EQ(insert(1, "NEWER"), (Outcome{0, 6, "Overflow"}));
  EXPECT_EQ(numbers(), "1|NEW\n2|P1\n32767|P2\n");
}

TEST_P(ReturnLines, GoBackOnlyToWhoDeliveredThePart) {
  EXPECT_EQ(insert(1, "RECEIVED", 1), done);
  EXPECT_EQ(insert(2, "ISSUED", 1), never_received);
  EXPECT_EQ(insert(2, "UNKNOWN", 1), never_received);
  EXPECT_EQ(numbers(), "1|RECEIVED\n");
  EXPECT_EQ(insert(2, "UNKNOWN", 0), done);
  EXPECT_EQ(insert(3, "ISSUED"), done);
}

TEST_P(ReturnLines, GoBackToNobodyWhoIsNoSupplier) {
  Fields fields = line(1, "RECEIVED");
  EXPECT_EQ(insert_return(detail(), "R2", 1, fields, 1), never_received);
  EXPECT_EQ(insert_return(detail(), "R9", 1, fields, 1), never_received);
  EXPECT_EQ(numbers(), "");
}

TEST_P(ReturnLines, NeedTheRightsOfPurchaseReturns) {
  given({"Insert Into USERRIGHTS(USERID,FUNCCODE,CANINSERT,CANUPDATE) Values('RITA','STK011PORTN',1,1)",
         "Insert Into USERRIGHTS(USERID,FUNCCODE,CANINSERT,CANUPDATE) Values('RUDI','STK010POREV',1,1)"});
  given_lines(1);
  Fields fields = line(2, "NEW");
  EXPECT_EQ(insert_return(detail("RUDI"), "R1", 2, fields), no_right);
  EXPECT_EQ(update_return(detail("RUDI"), "R1", 1, fields), no_right);
  EXPECT_EQ(insert_return(detail("RITA"), "R1", 2, fields), done);
  fields = Fields{{"QTY", -2}};
  EXPECT_EQ(update_return(detail("RITA"), "R1", 1, fields), done);
}

TEST_P(ReturnLines, AreChangedByNumberAlone) {
  given_lines(3);
  Fields fields{{"QTY", -7}, {"SN", 2}};
  EXPECT_EQ(update_return(detail(), "R1", 2, fields), done);
  EXPECT_EQ(rows("Select SN,QTY From STKTRANDT Where TRANNO='R1' Order By SN"), "1|-1\n2|-7\n3|-1\n");
}

TEST_P(ReturnLines, TakeANewNumberWithoutMovingTheOthers) {
  given_lines(3);
  Fields fields{{"SN", 3}};
  EXPECT_EQ(update_return(detail(), "R1", 1, fields), done);
  EXPECT_EQ(numbers(), "2|P2\n3|P1\n3|P3\n");
}

// The engine would keep the first of the two changes: without a transaction it stayed.
TEST_P(ReturnLines, StayAsTheyWereWhenAChangeIsRefusedHalfWay) {
  given_lines(2);
  given({"Update STKTRANDT Set SN=1 Where TRANNO='R1'"});
  refuse("UPDATE", "STKTRANDT", "NEW.PARTNO='P2'", "no more changes");
  const std::string before = rows("Select SN,PARTNO,QTY From STKTRANDT Where TRANNO='R1' Order By PARTNO");
  EXPECT_EQ(before, "1|P1|-1\n1|P2|-1\n");
  Fields fields{{"QTY", -7}};
  const Outcome outcome = update_return(detail(), "R1", 1, fields);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("no more changes"), std::string::npos) << outcome.description;
  EXPECT_EQ(rows("Select SN,PARTNO,QTY From STKTRANDT Where TRANNO='R1' Order By PARTNO"), before);
}

TEST_P(ReturnLines, WithAnApostropheInTheirAddressAreOutOfReach) {
  given({"Insert Into SUPPLIERS(SUPPLIERS) Values('O''Neil')",
         "Insert Into STKTRANHD(TRANNO,TRANTYPE,DEPTNOTO) Values('R3','STK011PORTN','O''Neil')",
         "Insert Into STKTRANDT(TRANNO,SN,PARTNO,QTY,ADDBY) Values('R''1',1,'P1',-1,'OWEN')"});
  const std::string before = lines();
  Fields fields = line(1, "P1");
  EXPECT_EQ(insert_return(detail(), "R'1", 1, fields), syntax_error);
  EXPECT_EQ(insert_return(detail(), "R3", 1, fields, 1), syntax_error);
  EXPECT_EQ(insert(1, "it's", 1), syntax_error);
  EXPECT_EQ(update_return(detail(), "R'1", 1, fields), syntax_error);
  EXPECT_EQ(update_return(detail("OWEN"), "R'1", 1, fields), syntax_error);
  EXPECT_EQ(lines(), before);
  // In the collections it is the builder's business.
  EXPECT_EQ(insert(1, "it's"), done);
  EXPECT_EQ(numbers(), "1|it's\n");
}

TEST_P(ReturnLines, TakeNoNumberThatIsNone) {
  given_lines(1);
  const struct {
    Value number;
    Failure failure;
  } rows[] = {{32768, {6}}, {"x", {13}}, {automation::Null{}, {94}}};
  for (const auto& [number, failure] : rows) {
    Fields fields{{"SN", number}};
    EXPECT_EQ(update_return(detail(), "R1", 1, fields), failure);
  }
  EXPECT_EQ(numbers(), "1|P1\n");
}

TEST_P(ReturnLines, BelongToTheCreatorOfTheFirstLine) {
  given_lines(2);
  given({"Update STKTRANDT Set ADDBY='OLGA' Where TRANNO='R1' And SN=2"});
  Fields fields{{"QTY", -7}};
  EXPECT_EQ(update_return(detail("OWEN"), "R1", 2, fields), done);
  EXPECT_EQ(update_return(detail("OLGA"), "R1", 2, fields), no_right);
}

}  // namespace
}  // namespace tallyra::transactions_test
