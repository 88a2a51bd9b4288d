#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/unit/company/company_folder.h"

namespace {

using namespace tallyra::tests::generated_company;

class SchemaRules : public testing::Test {
 protected:
  CompanyFolder folder;
  company::Database database{folder.empty_database()};

  void header(const std::string& number, const std::string& from, const std::string& to = "") {
    database.execute("INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,DEPTNOTO) VALUES('" + number +
                     "','STK024MRPL','2024-02-01 00:00:00','" + from + "','" + to + "')");
  }
};

TEST_F(SchemaRules, TrailingBlanksOfADepartmentNumberDoNotCount) {
  header("CL1", "10 ", "20  ");
  const char* conditions[] = {
      "DEPTNOFR='10'",
      "DEPTNOFR='10 '",
      "DEPTNOFR='10   '",
      "DEPTNOTO='20'",
      "DEPTNOTO IN ('20')",
      "DEPTNOFR='10' AND TRANDT>'2024-01-31 00:00:00' AND TRANDT<='2024-02-29 00:00:00'"};
  for (const char* condition : conditions) {
    EXPECT_EQ(value_of(database, std::string("SELECT COUNT(*) FROM STKTRANHD WHERE ") + condition), "1")
        << condition;
    EXPECT_EQ(
        value_of(database, std::string("SELECT COUNT(*) FROM STKTRANHD NOT INDEXED WHERE ") + condition), "1")
        << condition;
  }
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANHD WHERE DEPTNOFR=' 10'"), "0");
}

TEST_F(SchemaRules, TrailingBlanksDoNotCountInJoinsEither) {
  header("CL1", "10 ", "S1 ");
  database.execute("INSERT INTO DEPARTS(DEPTNO,DEPTNM) VALUES('10','Store')");
  database.execute("INSERT INTO SUPPLIERS(SUPPLIERS) VALUES('S1')");
  EXPECT_EQ(value_of(database, "SELECT DEPTNM FROM STKTRANHD INNER JOIN DEPARTS ON DEPTNOFR=DEPTNO"),
            "Store");
  EXPECT_EQ(value_of(database,
                     "SELECT STKTRANHD.DEPTNOTO FROM STKTRANHD INNER JOIN SUPPLIERS ON "
                     "STKTRANHD.DEPTNOTO =SUPPLIERS  WHERE STKTRANHD.TRANNO='CL1'"),
            "S1 ");
}

TEST_F(SchemaRules, TheDepartmentIsStoredWithItsBlank) {
  header("CL1", "10 ");
  EXPECT_EQ(value_of(database, "SELECT '[' || DEPTNOFR || ']' FROM STKTRANHD"), "[10 ]");
}

TEST_F(SchemaRules, PartNumbersComeInByteOrder) {
  std::vector<std::string> parts = {"a-1", "A-1", "A1",   "a1", "A_1", "ab",   "AB",    "aB",  "A-10",
                                    "A-2", "ä-1", "Ä-1",  "z",  "Z",   "中-1", "中-01", "é",   "e",
                                    "E",   "-1",  "0001", "1",  "A 1", "A",    "a",     "😀-1", "~"};
  header("T1", "10");
  for (const std::string& part : parts) {
    database.execute("INSERT INTO PARTS(PARTNO) VALUES('" + part + "')");
    database.execute("INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('T1',0,'" + part + "',1)");
  }
  std::sort(parts.begin(), parts.end());
  const char* queries[] = {
      "SELECT PARTNO FROM PARTS ORDER BY PARTNO", "SELECT PARTNO FROM STKTRANDT ORDER BY PARTNO",
      "SELECT STKTRANDT.PARTNO,SUM(STKTRANDT.QTY) AS QTY FROM STKTRANDT INNER JOIN STKTRANHD ON "
      "STKTRANDT.TRANNO=STKTRANHD.TRANNO WHERE STKTRANHD.DEPTNOFR='10' GROUP BY STKTRANDT.PARTNO ORDER BY "
      "STKTRANDT.PARTNO"};
  for (const char* query : queries) {
    std::vector<std::string> found;
    for (const auto& row : database.query(query)) found.push_back(row[0]);
    EXPECT_EQ(found, parts) << query;
  }
}

TEST_F(SchemaRules, ADocumentNumberIsThereOnceUnlessItIsEmpty) {
  header("T1", "10");
  EXPECT_THROW(header("T1", "10"), company::DatabaseError);
  header("", "10");
  header("", "10");
  header("", "10");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANHD WHERE TRANNO=''"), "3");
}

TEST_F(SchemaRules, LinesOfADocumentMayAllBearNumberZero) {
  for (int line = 0; line < 3; ++line) {
    database.execute("INSERT INTO STKTRANDT(TRANNO,REFERENCE,SN,PARTNO,QTY) VALUES('C1','',0,'A',1)");
  }
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT WHERE TRANNO='C1' AND SN=0"), "3");
}

TEST_F(SchemaRules, DatesHaveOneFormOnly) {
  const char* columns[][3] = {{"STKTRANHD", "TRANNO,TRANTYPE,TRANDT", "'T','T',"},
                              {"STKCHECKHD", "CHECKNO,CHECKDT", "'C',"},
                              {"STKCLOSEHD", "CLOSEDT", ""}};
  const char* refused[] = {"'2024/01/31'", "'2024-01-31'", "'2024-02-30 00:00:00'",
                           "'31.01.2024'", "45322",        "'x'"};
  for (const auto& [table, names, keys] : columns) {
    const std::string insert = std::string("INSERT INTO ") + table + "(" + names + ") VALUES(" + keys;
    for (const char* date : refused) {
      EXPECT_THROW(database.execute(insert + date + ")"), company::DatabaseError) << table << " " << date;
    }
    database.execute(insert + "'2024-02-29 14:05:09')");
    EXPECT_EQ(value_of(database, std::string("SELECT COUNT(*) FROM ") + table), "1");
  }
}

TEST_F(SchemaRules, ACostSettingNeedsItsMaterialType) {
  EXPECT_THROW(database.execute("INSERT INTO PARTCOSTSET(MTYPENM) VALUES('Raw')"), company::DatabaseError);
  database.execute("INSERT INTO PARTCOSTSET(MTYPESN) VALUES(-3)");
  EXPECT_EQ(value_of(database, "SELECT MTYPENM FROM PARTCOSTSET WHERE MTYPESN=-3"), "");
}

TEST_F(SchemaRules, RightsAreRefusedUnlessGiven) {
  database.execute("INSERT INTO USERRIGHTS(USERID,FUNCCODE) VALUES('X','*')");
  EXPECT_EQ(value_of(database,
                     "SELECT CANINSERT+CANUPDATE+CANDELETE+CANAPPROVED+CANUNAPPROVED+CANCANCEL+"
                     "CANFINISHED+OWNER FROM USERRIGHTS"),
            "0");
}

TEST_F(SchemaRules, ReadersDoNotWaitForAWriter) {
  EXPECT_EQ(value_of(database, "PRAGMA journal_mode"), "wal");
}

}  // namespace
