#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

using stage::done;

class TranDetail : public Company {
 protected:
  TranDetail() {
    given(
        {"Insert Into PARTS(PARTNO,PARTNM,CATEGORYNO,COLORNO,COLORNM,UNITNM) "
         "Values('A','Bolt','C1','0','Grey','pcs')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('T1','PO1',0,'A',1,'OWEN')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('T1','PO1',1,'A',2,'OWEN')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('T1','PO1',2,'X',3,'OLGA')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('T1','PO2',1,'A',4,'OWEN')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY,ADDBY) Values('T2','PO1',1,'A',5,'OWEN')"});
  }
  static Line line(Value number, Value part = "A", Value type = "STK010POREV") {
    return {.type = type, .part = part, .number = number};
  }
  std::string quantities() const {
    return rows("Select TRANNO,REFERENCE,SN,QTY From STKTRANDT Order By TRANNO,REFERENCE,SN");
  }
};
TALLYRA_ON_BOTH_KINDS(TranDetail);

const std::string lines_before = "T1|PO1|0|1\nT1|PO1|1|2\nT1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n";

TEST_P(TranDetail, IsReadWithTheDescriptionOfItsPart) {
  Fields fields;
  EXPECT_EQ(read_line(detail(), line(1), fields), done);
  EXPECT_TRUE(fields.text().starts_with("TRANNO='T1' REFERENCE='PO1' SN=1 PARTNO='A' ")) << fields.text();
  EXPECT_TRUE(fields.text().ends_with(
      " EDITDT=Null PARTNM='Bolt' CATEGORYNO='C1' CATEGORYNO='C1' COLORNO='0' COLORNM='Grey' UNITNM='pcs'"))
      << fields.text();
  EXPECT_EQ(read_line(detail(), line(0), fields), done);
  EXPECT_NE(fields.text().find(" SN=0 "), std::string::npos);
  EXPECT_EQ(read_line(detail(), line(omitted), fields), done);
  EXPECT_NE(fields.text().find(" PARTNO='A' "), std::string::npos);
}

TEST_P(TranDetail, OfAnUnknownPartIsNotFound) {
  Fields fields{{"X", 1}};
  EXPECT_EQ(read_line(detail(), line(2), fields).number, 10000003);
  EXPECT_EQ(read_line(detail(), line(-1, "X"), fields).number, 10000003);
  EXPECT_EQ(fields.text(), "");
}

TEST_P(TranDetail, IsChangedByNumber) {
  Fields fields{{"QTY", 10}};
  EXPECT_EQ(write_line(detail(), "Update", line(0), fields), done);
  EXPECT_EQ(quantities(), "T1|PO1|0|10\nT1|PO1|1|2\nT1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n");
}

TEST_P(TranDetail, IsChangedByPartWithAllLinesOfThePart) {
  Fields fields{{"QTY", 10}};
  for (const Value& number : {Value(-1), omitted}) {
    given({"Update STKTRANDT Set QTY=0 Where TRANNO='T1' And REFERENCE='PO1' And PARTNO='A'"});
    EXPECT_EQ(write_line(detail(), "Update", line(number), fields), done);
    EXPECT_EQ(quantities(), "T1|PO1|0|10\nT1|PO1|1|10\nT1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n");
  }
}

TEST_P(TranDetail, IsChangedByItsCreatorAndNobodyElseWithoutTheRight) {
  Fields fields{{"QTY", 10}};
  EXPECT_EQ(write_line(detail("OLGA"), "Update", line(1), fields), no_right);
  EXPECT_EQ(write_line(detail("OLGA"), "Update", line(-1), fields), no_right);
  EXPECT_EQ(delete_line(detail("OLGA"), line(1)), no_right);
  EXPECT_EQ(quantities(), lines_before);
  EXPECT_EQ(write_line(detail("OWEN"), "Update", line(1), fields), done);
  EXPECT_EQ(write_line(detail("OWEN"), "Update", line(9), fields), done);
  EXPECT_EQ(delete_line(detail("OWEN"), line(0)), done);
  EXPECT_EQ(quantities(), "T1|PO1|1|10\nT1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n");
}

TEST_P(TranDetail, OfAPurchaseReturnIsChangedByPartOnly) {
  Fields fields{{"QTY", 10}};
  const Outcome outcome = write_line(detail(), "Update", line(1, "A", "STK011PORTN"), fields);
  EXPECT_EQ(outcome, syntax_error);
  EXPECT_TRUE(behaviour::names(outcome.description, "incomplete input") ||
              behaviour::names(outcome.description, "end of input"))
      << outcome.description;
  EXPECT_EQ(quantities(), lines_before);
  EXPECT_EQ(write_line(detail(), "Update", line(-1, "X", "STK011PORTN"), fields), done);
  EXPECT_EQ(quantities(), "T1|PO1|0|1\nT1|PO1|1|2\nT1|PO1|2|10\nT1|PO2|1|4\nT2|PO1|1|5\n");
}

TEST_P(TranDetail, IsAddedWhereItsAddressIsFree) {
  Fields fields{{"TRANNO", "T1"}, {"REFERENCE", "PO1"}, {"SN", 3}, {"PARTNO", "B"}, {"QTY", 0.1}};
  EXPECT_EQ(write_line(detail(), "Insert", line(1), fields), already_exists);
  EXPECT_EQ(write_line(detail(), "Insert", line(-1), fields), already_exists);
  EXPECT_EQ(write_line(detail("OWEN"), "Insert", line(3), fields), no_right);
  EXPECT_EQ(quantities(), lines_before);
  EXPECT_EQ(write_line(detail(), "Insert", line(3), fields), done);
  EXPECT_EQ(quantities(), "T1|PO1|0|1\nT1|PO1|1|2\nT1|PO1|2|3\nT1|PO1|3|0.1\nT1|PO2|1|4\nT2|PO1|1|5\n");
}

TEST_P(TranDetail, TakesItsNumberFromTheCollectionsNotFromTheAddress) {
  Fields fields{{"TRANNO", "T1"}, {"REFERENCE", "PO1"}, {"SN", 1}, {"PARTNO", "B"}, {"QTY", 9}};
  EXPECT_EQ(write_line(detail(), "Insert", line(7), fields), done);
  EXPECT_EQ(
      rows("Select PARTNO From STKTRANDT Where TRANNO='T1' And REFERENCE='PO1' And SN=1 Order By PARTNO"),
      "A\nB\n");
}

TEST_P(TranDetail, IsDeletedAndTheOthersKeepTheirNumbers) {
  EXPECT_EQ(delete_line(detail(), line(0)), done);
  EXPECT_EQ(quantities(), "T1|PO1|1|2\nT1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n");
  EXPECT_EQ(delete_line(detail(), line(0)), done);
  EXPECT_EQ(delete_line(detail(), line(omitted)), done);
  EXPECT_EQ(quantities(), "T1|PO1|2|3\nT1|PO2|1|4\nT2|PO1|1|5\n");
}

TEST_P(TranDetail, OfAPartWithAnApostropheIsOutOfReachByPart) {
  Fields fields{{"QTY", 1}};
  EXPECT_EQ(write_line(detail(), "Update", line(-1, "A'B"), fields), syntax_error);
  EXPECT_EQ(write_line(detail(), "Insert", line(-1, "A'B"), fields), syntax_error);
  EXPECT_EQ(delete_line(detail(), line(-1, "A'B")), syntax_error);
  EXPECT_EQ(quantities(), lines_before);
}

TEST_P(TranDetail, TakesNullTextsAndApostrophesFromTheCollections) {
  Fields fields{{"NOTES", "it's"}, {"QTY", automation::Null{}}};
  EXPECT_EQ(write_line(detail(), "Update", line(1), fields), done);
  EXPECT_EQ(rows("Select NOTES,QTY From STKTRANDT Where TRANNO='T1' And REFERENCE='PO1' And SN=1"),
            "it's|NULL\n");
}

}  // namespace
}  // namespace tallyra::transactions_test
