#include "tests/behaviour/transactions/company.h"

namespace tallyra::transactions_test {
namespace {

using automation::Date;
using stage::done;

class TranHead : public Company {
 protected:
  TranHead() {
    given(
        {"Insert Into STKTRANHD(TRANNO,TRANTYPE,TRANDT,STATUSSN,NOTES,ADDBY) "
         "Values('T1','STK010POREV','2024-03-07 00:00:00',0,'first','OWEN')",
         "Insert Into STKTRANHD(TRANNO,TRANTYPE,TRANDT,STATUSSN,ADDBY) "
         "Values('T2','STK030SHIP','2024-03-08 00:00:00',1,'OWEN')",
         "Insert Into STKSHIPNOTE(TRANNO,NOTES) Values('T2','it''s there')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,NOTES,ADDBY) "
         "Values('T1','PO1',5,'A','RA','MO1',2.5,0,1.25,'n','BERT')",
         "Insert Into STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,NOTES,ADDBY) "
         "Values('T1','PO1',2,'B',Null,Null,-3,0.1,0,Null,'BERT')"});
  }
  std::string headers() const {
    return rows("Select TRANNO,TRANTYPE,STATUSSN,NOTES,ADDBY From STKTRANHD Order By TRANNO");
  }
};
TALLYRA_ON_BOTH_KINDS(TranHead);

const std::string before = "T1|STK010POREV|0|first|OWEN\nT2|STK030SHIP|1|NULL|OWEN\n";

TEST_P(TranHead, IsReadWithTheTypesAndNullsOfItsColumns) {
  Fields fields;
  EXPECT_EQ(read_head(head(), "T1", "STK010POREV", fields), done);
  EXPECT_EQ(fields.text(),
            "TRANNO='T1' TRANTYPE='STK010POREV' REFERENCE=Null TRANDT=2024/03/07 DEPTNOFR=Null DEPTNMFR=Null "
            "DEPTNOTO=Null DEPTNMTO=Null STATUS=Null STATUSSN=0 STATUSBY=Null STATUSDT=Null MAKEBY=Null "
            "NOTES='first' ADDBY='OWEN' ADDDT=Null EDITBY=Null EDITDT=Null");
}

TEST_P(TranHead, OfAShipmentComesWithItsNote) {
  Fields fields;
  EXPECT_EQ(read_head(head(), "T2", "stk030SHIP", fields), done);
  EXPECT_TRUE(fields.text().ends_with(" FEEDBACK='it's there'")) << fields.text();
  EXPECT_EQ(read_head(head(), "T2", "STK030SHIPN", fields), done);
  EXPECT_EQ(fields.text().find("FEEDBACK"), std::string::npos);
  EXPECT_EQ(read_head(head(), "T1", "STK030SHIP", fields), done);
  EXPECT_TRUE(fields.text().ends_with(" FEEDBACK=Null"));
}

TEST_P(TranHead, ThatIsMissingLeavesEmptyCollections) {
  Fields fields{{"X", 1}};
  const Outcome outcome = read_head(head(), "T9", "STK010POREV", fields);
  EXPECT_EQ(outcome.result, 100);
  EXPECT_EQ(outcome.number, 10000003);
  EXPECT_EQ(fields.text(), "");
}

TEST_P(TranHead, IsApprovedAndUnapproved) {
  for (const auto& [tag, status] : {std::pair{"APPROVED", 1}, std::pair{"UNAPPROVED", 0},
                                    std::pair{"CANCEL", 3}, std::pair{"FINISHED", 2}}) {
    Fields fields{{"STATUSSN", status}, {"STATUSBY", "ANNA"}, {"STATUSDT", Date{45388.5}}};
    EXPECT_EQ(update_head(head(), "T1", "STK010POREV", fields, tag), done) << tag;
    EXPECT_EQ(rows("Select STATUSSN,STATUSBY,STATUSDT From STKTRANHD Where TRANNO='T1'"),
              std::to_string(status) + "|ANNA|2024/04/06 12:00:00\n");
    EXPECT_EQ(update_head(head("OWEN"), "T1", "STK010POREV", fields, tag), no_right) << tag;
  }
  EXPECT_EQ(rows("Select STATUSSN From STKTRANHD Where TRANNO='T2'"), "1\n");
}

TEST_P(TranHead, IsEditedByItsOwnerAndNobodyElseWithoutTheRight) {
  Fields fields{{"NOTES", "O'Neil's"}};
  EXPECT_EQ(update_head(head("OLGA"), "T1", "STK010POREV", fields), no_right);
  EXPECT_EQ(update_head(head("NOBODY"), "T1", "STK010POREV", fields), no_right);
  EXPECT_EQ(headers(), before);
  EXPECT_EQ(update_head(head("OWEN"), "T1", "STK010POREV", fields), done);
  EXPECT_EQ(headers(), "T1|STK010POREV|0|O'Neil's|OWEN\nT2|STK030SHIP|1|NULL|OWEN\n");
}

TEST_P(TranHead, OfAnotherTypeIsNotTheOwnersToRefuse) {
  // The owner query asks for the type as well, the update does not.
  Fields fields{{"NOTES", "changed"}};
  EXPECT_EQ(update_head(head("OLGA"), "T1", "STK020MISS", fields), done);
  EXPECT_EQ(headers(), "T1|STK010POREV|0|changed|OWEN\nT2|STK030SHIP|1|NULL|OWEN\n");
  EXPECT_EQ(update_head(head("OLGA"), "T9", "STK010POREV", fields), done);
}

TEST_P(TranHead, IsCreatedWithoutLines) {
  Fields fields{{"TRANNO", "T3"}, {"TRANTYPE", "STK010POREV"}, {"TRANDT", "2024/04/01"}, {"ADDBY", "ANNA"}};
  EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields), done);
  EXPECT_EQ(rows("Select TRANNO,TRANTYPE,TRANDT,ADDBY From STKTRANHD Where TRANNO='T3'"),
            "T3|STK010POREV|2024/04/01|ANNA\n");
  EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields), already_exists);
  EXPECT_EQ(insert_head(head("OWEN"), "T4", "STK010POREV", fields), no_right);
}

TEST_P(TranHead, IsCreatedWithTheLinesOfAnotherUnderTheirNumbers) {
  given({"Update STKTRANDT Set REFPARTNO='RB',MONO='',NOTES='' Where PARTNO='B'"});
  Fields fields{{"TRANNO", "T3"}, {"TRANTYPE", "STK010POREV"}, {"ADDBY", "CORA"}};
  EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields, "T1"), done);
  EXPECT_EQ(
      rows("Select REFERENCE,SN,PARTNO,REFPARTNO,MONO,QTY,VQTY,UPRICE,NOTES,ADDBY,EDITBY From STKTRANDT "
           "Where TRANNO='T3' Order By SN"),
      "PO1|2|B|RB||-3|0.1|0||CORA|CORA\n"
      "PO1|5|A|RA|MO1|2.5|0|1.25|n|CORA|CORA\n");
  EXPECT_EQ(rows("Select Count(*) From STKTRANDT Where TRANNO='T1'"), "2\n");
  if (!is_sqlite()) GTEST_SKIP() << "the dates are of a type of their own there";
  // The dates are dates to the engine, at the second of the copy.
  EXPECT_EQ(rows("Select Count(*) From STKTRANDT Where TRANNO='T3' And "
                 "ADDDT=strftime('%Y-%m-%d %H:%M:%S',ADDDT) And EDITDT>=ADDDT And "
                 "ADDDT>datetime('now','localtime','-1 minute')"),
            "2\n");
}

TEST_P(TranHead, WritesNullTextsOfACopyAsEmptyOnes) {
  Fields fields{{"TRANNO", "T3"}, {"TRANTYPE", "STK010POREV"}};
  EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields, "T1"), done);
  EXPECT_EQ(rows("Select REFPARTNO,MONO,NOTES,ADDBY,EDITBY From STKTRANDT Where TRANNO='T3' And SN=2"),
            "||||\n");
}

TEST_P(TranHead, IsNotCreatedWhenAnythingOfTheCopyFails) {
  for (const char* spoiled : {"QTY=Null", "NOTES='it''s'", "PARTNO='A''B'", "SN=Null"}) {
    given({"Update STKTRANDT Set NOTES='',QTY=1,SN=2,PARTNO='B' Where TRANNO='T1' And PARTNO<>'A'",
           std::string("Update STKTRANDT Set ") + spoiled + " Where TRANNO='T1' And PARTNO='B'"});
    const std::string found = lines();
    Fields fields{{"TRANNO", "T3"}, {"TRANTYPE", "STK010POREV"}};
    EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields, "T1"), syntax_error) << spoiled;
    EXPECT_EQ(headers(), before) << spoiled;
    EXPECT_EQ(lines(), found) << spoiled;
  }
}

TEST_P(TranHead, IsCreatedAloneAsTheCopyOfADocumentWithoutLines) {
  Fields fields{{"TRANNO", "T3"}, {"TRANTYPE", "STK010POREV"}};
  EXPECT_EQ(insert_head(head(), "T3", "STK010POREV", fields, "T2"), done);
  EXPECT_EQ(rows("Select Count(*) From STKTRANHD Where TRANNO='T3'"), "1\n");
  EXPECT_EQ(rows("Select Count(*) From STKTRANDT Where TRANNO='T3'"), "0\n");
}

TEST_P(TranHead, IsDeletedWithItsLinesAndItsNote) {
  given({"Insert Into STKSHIPNOTE(TRANNO,NOTES) Values('T1','note')"});
  EXPECT_EQ(delete_head(head("OLGA"), "T1", "STK010POREV"), no_right);
  EXPECT_EQ(headers(), before);
  EXPECT_EQ(delete_head(head("OWEN"), "T1", "another type"), done);
  EXPECT_EQ(headers(), "T2|STK030SHIP|1|NULL|OWEN\n");
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(rows("Select TRANNO From STKSHIPNOTE"), "T2\n");
  EXPECT_EQ(delete_head(head(), "T1", "STK010POREV"), done);
}

TEST_P(TranHead, IsKeptWholeWhenPartOfItCannotBeDeleted) {
  refuse("DELETE", "STKSHIPNOTE", "", "notes are kept");
  const std::string found = lines();
  const Outcome outcome = delete_head(head(), "T2", "STK030SHIP");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.description.find("notes are kept"), std::string::npos) << outcome.description;
  EXPECT_EQ(headers(), before);
  EXPECT_EQ(lines(), found);
  EXPECT_EQ(rows("Select NOTES From STKSHIPNOTE"), "it's there\n");
}

TEST_P(TranHead, UnderANumberWithAnApostropheIsOutOfReach) {
  Fields fields{{"TRANNO", "O'1"}, {"TRANTYPE", "STK010POREV"}};
  EXPECT_EQ(insert_head(head(), "O'1", "STK010POREV", fields), syntax_error);
  EXPECT_EQ(update_head(head(), "O'1", "STK010POREV", fields), syntax_error);
  EXPECT_EQ(delete_head(head(), "O'1", "STK010POREV"), syntax_error);
  EXPECT_EQ(read_head(head(), "O'1", "STK010POREV", fields), syntax_error);
  EXPECT_EQ(headers(), before);
}

TEST_P(TranHead, TakesNoColumnThatDoesNotExist) {
  Fields fields{{"NOSUCH", 1}};
  const Outcome outcome = update_head(head(), "T1", "STK010POREV", fields);
  EXPECT_EQ(outcome.result, 0);
  EXPECT_NE(outcome.number, 0);
  EXPECT_NE(outcome.description.find("NOSUCH"), std::string::npos) << outcome.description;
  fields = Fields{{"NOTES", "x"}};
  Fields::add(fields.names, "SURPLUS");
  EXPECT_EQ(update_head(head(), "T1", "STK010POREV", fields), fields_do_not_match);
  EXPECT_EQ(headers(), before);
}

}  // namespace
}  // namespace tallyra::transactions_test
