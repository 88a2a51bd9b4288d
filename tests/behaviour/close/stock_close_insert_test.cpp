#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/local/local_classes.h"
#include "tests/behaviour/close/closing_company.h"

// Month closes on a real database: rows before, call, rows after.
namespace tallyra::behaviour {
namespace {

using stage::done;
using stage::Outcome;

class MonthCloseOnEachEngine : public testing::TestWithParam<const char*> {
 protected:
  ClosingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, MonthCloseOnEachEngine, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

// In the order of the parts' bytes: capitals before small letters, Chinese last.
const char* const january_departments =
    "10 |BOLT-1|2|0\n"
    "10 |Bolt1|8|0\n"
    "10 |bolt-1|9|0\n"
    "10 |螺丝|7|0\n"
    "20 |Bolt1|1|0\n"
    "20 |bolt-1|7|0\n"
    "20 |frame|3|0\n"
    "20 |螺丝|2|0\n";

TEST_P(MonthCloseOnEachEngine, WritesADocumentPerDepartmentThatMovedAnything) {
  EXPECT_EQ(company.close("2024/01/31"), done);
  EXPECT_EQ(company.department_lines("2024-02-01"), january_departments);
  EXPECT_EQ(
      company.rows("SELECT TRANTYPE, STATUSSN, TRANDT, DEPTNOFR, NOTES, ADDBY, ADDDT, EDITBY, EDITDT FROM "
                   "STKTRANHD WHERE TRANTYPE LIKE 'STK%CLOSE%' ORDER BY TRANNO"),
      "STK027CLOSE|0|2024/02/01|10 ||ADMIN|2024/03/05|ADMIN|2024/03/05\n"
      "STK027CLOSE|0|2024/02/01|20 ||ADMIN|2024/03/05|ADMIN|2024/03/05\n"
      "STKCLOSEALL|0|2024/02/01|NULL|NULL|ADMIN|2024/03/05|ADMIN|2024/03/05\n");
  EXPECT_EQ(company.rows("SELECT CLOSEDT, STATUSSN FROM STKCLOSEHD"), "2024/01/31|0\n");
}

TEST_P(MonthCloseOnEachEngine, PricesTheCompanyDocumentByPriceType) {
  EXPECT_EQ(company.close("2024/01/31"), done);
  EXPECT_EQ(company.company_lines("2024-02-01"),
            "BOLT-1|2|9|Month`s close\n"   // price type 2, but purchased: average price
            "Bolt1|9|6|Month`s close\n"    // average of 4 at 5 and 4 at 7
            "bolt-1|16|3|Month`s close\n"  // last price
            "frame|3|20|Month`s close\n"   // produced: cost
            "螺丝|9|0.5|Month`s close\n");
}

TEST_P(MonthCloseOnEachEngine, TheNextMonthOpensWithTheDocumentsOfThisOne) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  ASSERT_EQ(company.approve("2024/01/31"), done);
  EXPECT_EQ(company.close("2024/02/29"), done);
  EXPECT_EQ(company.department_lines("2024-03-01"),
            "10 |BOLT-1|2|0\n"
            "10 |Bolt1|8|0\n"
            "10 |bolt-1|10|0\n"
            "10 |螺丝|7|0\n"
            "20 |Bolt1|1|0\n"
            "20 |bolt-1|7|0\n"
            "20 |frame|4|0\n"
            "20 |螺丝|2|0\n");
  EXPECT_EQ(company.rows("SELECT L.UPRICE FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO WHERE "
                         "H.TRANTYPE='STKCLOSEALL' AND H.TRANDT='2024-03-01 00:00:00' AND L.PARTNO='frame'"),
            "25\n")
      << "3 at 20 carried over and 1 at 40";
}

TEST_P(MonthCloseOnEachEngine, AClosedDateIsRefusedAndNothingChanges) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  const std::string before = company.everything();
  const Outcome outcome = company.close("2024/01/31");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.number, 10000004);
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, DeletingTheCloseRestoresTheStateBefore) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  ASSERT_EQ(company.approve("2024/01/31"), done);
  const std::string before = company.everything();
  ASSERT_EQ(company.close("2024/02/29"), done);
  EXPECT_NE(company.everything(), before);
  EXPECT_EQ(company.remove("2024/02/29"), done);
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, DeletingTakesApprovedDocumentsToo) {
  const std::string before = company.everything();
  ASSERT_EQ(company.close("2024/01/31"), done);
  ASSERT_EQ(company.approve("2024/01/31"), done);
  EXPECT_EQ(company.remove("2024/01/31"), done);
  EXPECT_EQ(company.everything(), before);
  EXPECT_EQ(company.remove("2024/01/31"), done) << "a date that was never closed";
}

TEST_P(MonthCloseOnEachEngine, ApprovingApprovesEarlierRecordsAndOnlyThisDatesDocuments) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  company.run({"UPDATE STKTRANHD SET STATUSSN=2 WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')"});
  ASSERT_EQ(company.close("2024/02/29"), done);
  EXPECT_EQ(company.approve("2024/02/29"), done);
  EXPECT_EQ(company.rows("SELECT CLOSEDT, STATUSSN FROM STKCLOSEHD ORDER BY CLOSEDT"),
            "2024/01/31|1\n2024/02/29|1\n");
  EXPECT_EQ(company.rows("SELECT DISTINCT TRANDT, STATUSSN FROM STKTRANHD WHERE TRANTYPE IN "
                         "('STK027CLOSE','STKCLOSEALL') ORDER BY 1"),
            "2024/02/01|2\n2024/03/01|1\n");
}

TEST_P(MonthCloseOnEachEngine, UnapprovedCloseDocumentsOfAnyMonthAreRemovedByTheNextRun) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  ASSERT_EQ(company.close("2024/02/29"), done) << "January was not approved";
  EXPECT_EQ(company.department_lines("2024-02-01"), "");
  EXPECT_EQ(company.company_lines("2024-02-01"), "");
}

TEST_P(MonthCloseOnEachEngine, ACloseWithoutMovementsWritesOnlyItsRecord) {
  EXPECT_EQ(company.close("2023/12/31"), done);
  EXPECT_EQ(company.rows("SELECT Count(*) FROM STKTRANHD WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')"),
            "0\n");
  EXPECT_EQ(company.rows("SELECT CLOSEDT FROM STKCLOSEHD"), "2023/12/31\n");
}

TEST_P(MonthCloseOnEachEngine, WithoutDepartmentsNothingIsWritten) {
  company.run({"DELETE FROM DEPARTS"});
  const std::string before = company.everything();
  EXPECT_EQ(company.close("2024/01/31"), (Outcome{0, 1, "Department have not been setted"}));
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, AFailingDepartmentLeavesNoCloseDocument) {
  company.refuse("NO_ROOM", "INSERT", "STKTRANDT", "NEW.PARTNO='frame' AND NEW.NOTES IS NULL",
                 "no more room");
  const std::string before = company.everything();
  const Outcome outcome = company.close("2024/01/31");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.number, stage::narrowed(-2147217873.0)) << outcome.description;
  EXPECT_NE(outcome.description.find("no more room"), std::string::npos) << outcome.description;
  EXPECT_EQ(company.everything(), before);
  company.allow("NO_ROOM", "STKTRANDT");
  EXPECT_EQ(company.close("2024/01/31"), done) << "the run is simply repeated";
  EXPECT_EQ(company.department_lines("2024-02-01"), january_departments);
}

TEST_P(MonthCloseOnEachEngine, AFailingCompanyCloseLeavesNoCloseDocument) {
  company.refuse("NO_ROOM", "INSERT", "STKTRANDT", "NEW.NOTES='Month`s close' AND NEW.PARTNO='frame'",
                 "no more room");
  const std::string before = company.everything();
  EXPECT_EQ(company.close("2024/01/31").result, 0);
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, AColumnThatDoesNotExistRemovesTheDocumentsAgain) {
  const std::string before = company.everything();
  stage::Fields fields{{"CLOSEDT", "2024/01/31"}, {"NOSUCHCOLUMN", 1}};
  const auto object = company.client("CStockClose");
  const Outcome outcome = stage::outcome_of(
      object,
      object.call("Insert", "2024/01/31", automation::ref(fields.names), automation::ref(fields.values)));
  EXPECT_EQ(outcome.result, 0);
  EXPECT_GT(outcome.number, 0);
  EXPECT_NE(outcome.description.find("NOSUCHCOLUMN"), std::string::npos) << outcome.description;
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, PartsThatDifferOnlyInCaseOrHyphensKeepOneLineEach) {
  company.run({"DELETE FROM STKTRANDT", "DELETE FROM STKTRANHD", "DELETE FROM PARTS"});
  const char* const parts[] = {"a",  "A",  "a-b", "ab", "AB", "a b", "a_b", "aB",
                               "Zz", "zZ", "ä",   "Ä",  "中", "😀",   "~",   "0"};
  company.run(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO,STATUSSN) VALUES"
       "('X','STK010POREV','2024-01-02 00:00:00','10','',1),('Y','STK024MRPL','2024-01-02 "
       "00:00:00','','10',1)"});
  int n = 0;
  for (const std::string part : parts) {
    company.run({"INSERT INTO PARTS(PARTNO,PRICETYPESN,MTYPESN) VALUES('" + part + "',1,1)"});
    if (++n % 3 != 0)
      company.run({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('X',1,'" + part + "',1)"});
    if (n % 3 != 1)
      company.run({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('Y',1,'" + part + "',10)"});
  }
  EXPECT_EQ(company.close("2024/01/31"), done);
  EXPECT_EQ(company.rows(
                "SELECT Count(*), Count(DISTINCT L.PARTNO), Sum(L.QTY) FROM STKTRANHD H JOIN STKTRANDT L ON "
                "L.TRANNO=H.TRANNO WHERE H.TRANTYPE='STK027CLOSE'"),
            "16|16|111\n");
}

// Insert, Update, Read and Delete of the close of January.
std::vector<Outcome> every_method(const ClosingCompany& company, const std::string& connection_string = {}) {
  std::vector<Outcome> outcomes;
  for (const char* method : {"Insert", "Update", "Read", "Delete"}) {
    stage::Fields fields{{"CLOSEDT", "2024/01/31"}, {"STATUSSN", 0}};
    automation::Value tag = "APPROVED";
    const auto object = company.client("CStockClose");
    if (!connection_string.empty()) object.put("ConnectionString", connection_string);
    const auto names = automation::ref(fields.names);
    const auto values = automation::ref(fields.values);
    const std::string_view name = method;
    const automation::Value result =
        name == "Delete"   ? object.call(method, "2024/01/31")
        : name == "Update" ? object.call(method, "2024/01/31", names, values, automation::ref(tag))
                           : object.call(method, "2024/01/31", names, values);
    outcomes.push_back(stage::outcome_of(object, result));
  }
  return outcomes;
}

TEST_P(MonthCloseOnEachEngine, AMissingTableIsToldAndNothingIsWritten) {
  company.run({"ALTER TABLE STKCLOSEHD RENAME TO ELSEWHERE"});
  const std::string before =
      company.rows("SELECT * FROM STKTRANHD") + company.rows("SELECT * FROM STKTRANDT");
  for (const Outcome& outcome : every_method(company)) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147217865.0)) << outcome.description;
    EXPECT_TRUE(names(outcome.description, "STKCLOSEHD")) << outcome.description;
  }
  EXPECT_EQ(company.rows("SELECT * FROM STKTRANHD") + company.rows("SELECT * FROM STKTRANDT"), before);
}

TEST_P(MonthCloseOnEachEngine, AnUnreachableDatabaseIsTold) {
  for (const Outcome& outcome :
       every_method(company, "DRIVER={SQLite3};Database=/no/such/folder/company.db")) {
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147467259.0)) << outcome.description;
    EXPECT_NE(outcome.description, "");
  }
}

TEST_P(MonthCloseOnEachEngine, AnUnregisteredCollaboratorIsTold) {
  const std::string before = company.everything();
  for (const char* prog_id : {"Lexbank.ErrMsg", "Corvane.CPowerCheck", "Lexbank.CPartF", "Corvane.CSystem"}) {
    const automation::local::ScopedClass hidden(prog_id, nullptr);
    for (const Outcome& outcome : every_method(company))
      EXPECT_EQ(outcome, stage::trapped(429, "ActiveX component can't create object")) << prog_id;
  }
  EXPECT_EQ(company.everything(), before);
}

TEST_P(MonthCloseOnEachEngine, AValueThatDoesNotConvertIsToldAndTheDocumentsGo) {
  const std::string before = company.everything();
  const struct {
    const char* column;
    automation::Value value;
  } rows[] = {{"STATUSSN", "many"},
              {"STATUSDT", "yesterday"},
              {"STATUSSN", automation::make_object<automation::Collection>()}};
  for (const auto& [column, value] : rows) {
    stage::Fields fields{{"CLOSEDT", "2024/01/31"}, {column, value}};
    const auto object = company.client("CStockClose");
    const Outcome outcome = stage::outcome_of(
        object,
        object.call("Insert", "2024/01/31", automation::ref(fields.names), automation::ref(fields.values)));
    EXPECT_EQ(outcome.result, 0);
    EXPECT_NE(outcome.description.find(column), std::string::npos) << outcome.description;
    EXPECT_EQ(company.everything(), before);
  }
}

TEST_P(MonthCloseOnEachEngine, AnOwnerRightIsNoRightHere) {
  company.grant("OWNER", "OWNER");
  EXPECT_EQ(company.close("2024/01/31", "OWNER").number, 10000016);
}

TEST_P(MonthCloseOnEachEngine, RecordsAreReadWithTypedValues) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  stage::Fields fields;
  const auto object = company.client("CStockClose");
  EXPECT_EQ(stage::outcome_of(object, object.call("Read", "2024/01/31", automation::ref(fields.names),
                                                  automation::ref(fields.values))),
            done);
  const auto values = automation::to_object(fields.values);
  EXPECT_EQ(values.call("Item", 1), automation::Value(automation::Date{45322}));
  EXPECT_NE(fields.text().find("CLOSEDT=2024/01/31 "), std::string::npos) << fields.text();
  EXPECT_NE(fields.text().find("STATUSSN=0 "), std::string::npos) << fields.text();
}

}  // namespace
}  // namespace tallyra::behaviour
