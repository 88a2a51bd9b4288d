#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/unit/company/company_folder.h"

namespace {

using namespace tallyra::tests::samples;

using Content = std::map<std::string, std::vector<std::vector<std::string>>>;

Content content_of(const std::string& path) {
  company::Database database(path);
  Content content;
  for (const auto& table : database.query("SELECT name FROM sqlite_master WHERE type='table'")) {
    content[table[0]] = database.query("SELECT * FROM " + table[0]);
  }
  return content;
}

TEST(CompanyContent, IsTheSameForTheSameSeed) {
  const CompanyFolder folder;
  const Content first = content_of(folder.company_database("first.db"));
  EXPECT_EQ(first.at("STKTRANDT").size(), 1200U);
  EXPECT_EQ(first, content_of(folder.company_database("second.db")));
}

TEST(CompanyContent, IsAnotherForAnotherSeed) {
  const CompanyFolder folder;
  auto options = folder.options("other.db");
  options.seed = 2;
  company::generate(options, [](int) {});
  const Content first = content_of(folder.company_database());
  const Content other = content_of(options.database);
  for (const char* table : {"PARTS", "SUPPLIERS", "STKTRANHD", "STKTRANDT", "PODT", "CODETAIL", "SODTBOM"}) {
    EXPECT_NE(first.at(table), other.at(table)) << table;
  }
}

// Known values, so that no change of the generator, a compiler or a library goes unseen.
TEST(CompanyContent, DoesNotDependOnTheMachine) {
  const CompanyFolder folder;
  company::Database database(folder.company_database());
  EXPECT_EQ(
      value_of(database,
               "SELECT GROUP_CONCAT(PARTNO||' '||PARTNM) FROM (SELECT * FROM PARTS ORDER BY rowid LIMIT "
               "1,5)"),
      "Blä-00002 Nylon sheet 49 mm,R00003 Glass granulate 55 mm,RM-00004 Steel tube 5 mm,RM-00005ä Oak wire "
      "33 "
      "mm,Sub-00006-A Control carrier");
  EXPECT_EQ(value_of(database, "SELECT SUPPLIERNM FROM SUPPLIERS ORDER BY rowid LIMIT 1"),
            "Riverside Glass No. 1");
  EXPECT_EQ(
      value_of(database, "SELECT SUM(QTY)||' '||SUM(CAST(ROUND(UPRICE*100) AS INTEGER)) FROM STKTRANDT"),
      "50523.0 23757465");
}

TEST(CompanyContent, HasTheDefaultSize) {
  const CompanyFolder folder;
  company::Options options;
  options.database = folder.file("default.db");
  options.schema = SQLITE_SCHEMA;
  company::generate(options, [](int) {});
  company::Database database(options.database);
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM DEPARTS"), "6");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM PARTS"), "300");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKTRANDT"), "20000");
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(M) FROM (SELECT DISTINCT SUBSTR(TRANDT,1,7) AS M FROM STKTRANHD "
                     "ORDER BY M)"),
            "2024-01,2024-02,2024-03");
}

class Company : public testing::Test {
 protected:
  CompanyFolder folder;
  company::Database database{folder.company_database()};

  // Names what is wrong for every query that finds a row.
  void expect_none(const std::map<std::string, std::string>& searches) {
    for (const auto& [what, search] : searches) EXPECT_EQ(value_of(database, search), "no row") << what;
  }
};

TEST_F(Company, HoldsTogether) {
  expect_none({
      {"a line without header",
       "SELECT TRANNO FROM STKTRANDT WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANHD)"},
      {"a header without line",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANDT)"},
      {"a line of no part", "SELECT PARTNO FROM STKTRANDT WHERE PARTNO NOT IN (SELECT PARTNO FROM PARTS)"},
      {"a header of no department",
       "SELECT TRANNO FROM STKTRANHD WHERE DEPTNOFR IS NULL OR DEPTNOFR NOT IN (SELECT DEPTNO FROM DEPARTS)"},
      {"a transfer into no department",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE='STK024MRPL' AND DEPTNOTO NOT IN (SELECT DEPTNO FROM "
       "DEPARTS)"},
      {"a transfer to itself", "SELECT TRANNO FROM STKTRANHD WHERE DEPTNOTO=DEPTNOFR"},
      {"a purchase from no supplier",
       "SELECT TRANNO FROM STKTRANHD WHERE TRANTYPE IN ('STK010POREV','STK010PORTN','STK011PORTN') AND "
       "DEPTNOTO NOT IN "
       "(SELECT "
       "SUPPLIERS FROM SUPPLIERS)"},
      {"a receipt against neither order nor return",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK010POREV' "
       "AND NOT "
       "EXISTS(SELECT 1 FROM PODT P WHERE P.PONO=D.REFERENCE AND P.SN=D.SN AND P.PARTNO=D.PARTNO) AND NOT "
       "EXISTS(SELECT 1 FROM STKTRANDT R WHERE R.TRANNO=D.REFERENCE AND R.SN=D.SN AND R.PARTNO=D.PARTNO)"},
      {"more received than ordered",
       "SELECT P.PONO FROM PODT P JOIN STKTRANDT D ON D.REFERENCE=P.PONO AND D.SN=P.SN JOIN STKTRANHD H ON "
       "D.TRANNO=H.TRANNO AND H.TRANTYPE='STK010POREV' GROUP BY P.PONO,P.SN HAVING "
       "SUM(D.QTY)>MAX(POQTY+DEDUCTQTY)"},
      {"a return of what was never received",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK010PORTN','STK011PORTN') AND NOT "
       "EXISTS(SELECT 1 FROM STKTRANHD H2 JOIN STKTRANDT D2 ON D2.TRANNO=H2.TRANNO WHERE "
       "H2.DEPTNOTO=H.DEPTNOTO AND "
       "H2.TRANTYPE='STK010POREV' AND D2.PARTNO=D.PARTNO)"},
      {"more sent back against an order line than was received for it",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK010PORTN' "
       "AND -D.QTY>IFNULL((SELECT SUM(D2.QTY) FROM STKTRANHD H2 JOIN STKTRANDT D2 ON D2.TRANNO=H2.TRANNO "
       "WHERE H2.TRANTYPE='STK010POREV' AND H2.TRANDT<=H.TRANDT AND D2.REFERENCE=D.REFERENCE AND D2.SN=D.SN "
       "AND D2.PARTNO=D.PARTNO),0)"},
      {"an issue that no production order asks for",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK020MISS','STK021RTN1') AND NOT EXISTS(SELECT 1 FROM CODETAIL C WHERE C.CONO=D.REFERENCE AND "
       "C.PARTNO=D.PARTNO)"},
      {"more issued than required",
       "SELECT C.CONO FROM CODETAIL C JOIN STKTRANDT D ON D.REFERENCE=C.CONO AND D.PARTNO=C.PARTNO JOIN "
       "STKTRANHD H "
       "ON D.TRANNO=H.TRANNO AND H.TRANTYPE='STK020MISS' GROUP BY C.CONO,C.SN HAVING "
       "-SUM(D.QTY)>MAX(COQTY+TEMPLETQTY)"},
      {"goods of no production order",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='STK022REVMO' "
       "AND NOT "
       "EXISTS(SELECT 1 FROM COHD C WHERE C.CONO=D.REFERENCE AND C.PARTNO=D.PARTNO AND C.STATUSSN=1)"},
      {"a movement for no sales order",
       "SELECT D.TRANNO FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE TRANTYPE IN "
       "('STK030SHIP','STK020MISSSO','STK021RTNSO','STK022REVSO') AND NOT EXISTS(SELECT 1 FROM SODTBOM S "
       "JOIN SOHD O "
       "ON O.SONO=S.SONO WHERE S.SONO=D.REFERENCE AND S.PARTNO=D.PARTNO)"},
      {"a note on no shipment",
       "SELECT TRANNO FROM STKSHIPNOTE WHERE TRANNO NOT IN (SELECT TRANNO FROM STKTRANHD WHERE "
       "TRANTYPE='STK030SHIP')"},
      {"a bill of materials of no part",
       "SELECT ASSMNO FROM ASSMBOM WHERE ASSMNO NOT IN (SELECT PARTNO FROM PARTS) OR PARTNO NOT IN (SELECT "
       "PARTNO "
       "FROM PARTS)"},
      {"a line number twice", "SELECT TRANNO FROM STKTRANDT GROUP BY TRANNO,REFERENCE,SN HAVING COUNT(*)>1"},
      {"an apostrophe in a key",
       "SELECT PARTNO FROM PARTS WHERE INSTR(PARTNO||PARTNM,'''')>0 UNION SELECT DEPTNO FROM DEPARTS WHERE "
       "INSTR(DEPTNO||DEPTNM,'''')>0"},
  });
}

TEST_F(Company, HasDocumentsOfEveryTypeWithTheSignThatTheyNeed) {
  struct Row {
    const char* type;
    const char* signs;
  };
  const Row rows[] = {{"STK010POREV", "1"}, {"STK010PORTN", "-1"},  {"STK011PORTN", "-1"},
                      {"STK020MISS", "-1"}, {"STK020MISSSO", "-1"}, {"STK021RTN1", "1"},
                      {"STK021RTNSO", "1"}, {"STK022REVMO", "1"},   {"STK022REVSO", "1"},
                      {"STK024MRPL", "1"},  {"STK030SHIP", "-1"}};
  for (const auto& [type, signs] : rows) {
    EXPECT_EQ(value_of(database,
                       std::string("SELECT GROUP_CONCAT(DISTINCT SIGN(QTY)) FROM STKTRANDT D JOIN STKTRANHD "
                                   "H ON D.TRANNO=H.TRANNO WHERE TRANTYPE='") +
                           type + "'"),
              signs)
        << type;
  }
  EXPECT_EQ(value_of(database, "SELECT COUNT(DISTINCT TRANTYPE) FROM STKTRANHD"), "11");
  EXPECT_EQ(value_of(database, "SELECT COUNT(DISTINCT STATUSSN) FROM STKTRANHD"), "3");
  EXPECT_EQ(value_of(database,
                     "SELECT COUNT(*)*10>(SELECT COUNT(*)*9 FROM STKTRANHD) FROM STKTRANHD WHERE STATUSSN=1"),
            "1");
}

TEST_F(Company, NeverHasLessThanNothingInStock) {
  const std::string movements =
      "(SELECT DEPTNOFR AS DEPT,PARTNO,QTY,TRANDT FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO "
      "UNION ALL "
      "SELECT DEPTNOTO,PARTNO,QTY,TRANDT FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE "
      "TRANTYPE='STK024MRPL')";
  for (const char* until : {"2024-01-31", "2024-02-29", "2024-03-31"}) {
    EXPECT_EQ(value_of(database, "SELECT DEPT FROM " + movements + " WHERE TRANDT<='" + until +
                                     " 00:00:00' GROUP BY DEPT,PARTNO HAVING SUM(QTY)<0"),
              "no row")
        << until;
  }
}

TEST_F(Company, HasEveryPairOfMaterialAndPriceType) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM (SELECT DISTINCT MTYPESN,PRICETYPESN FROM PARTS)"), "9");
}

TEST_F(Company, HasOpenAndApprovedOrders) {
  for (const char* table : {"POHD", "COHD", "SOHD"}) {
    EXPECT_EQ(
        value_of(database, std::string("SELECT GROUP_CONCAT(STATUSSN) FROM (SELECT DISTINCT STATUSSN FROM ") +
                               table + " ORDER BY STATUSSN)"),
        "0,1")
        << table;
  }
}

TEST_F(Company, HasBillsOfFiveLevelsWithoutCycle) {
  EXPECT_EQ(value_of(database,
                     "WITH RECURSIVE BILL(PART,LEVEL) AS (SELECT ASSMNO,0 FROM ASSMBOM UNION SELECT "
                     "A.PARTNO,LEVEL+1 FROM ASSMBOM A JOIN BILL ON A.ASSMNO=PART WHERE LEVEL<50) SELECT "
                     "MAX(LEVEL) FROM BILL"),
            "5");
}

TEST_F(Company, HasPartNumbersThatTellByteOrderFromAnyOther) {
  EXPECT_NE(database.query("SELECT PARTNO FROM PARTS ORDER BY PARTNO"),
            database.query("SELECT PARTNO FROM PARTS ORDER BY PARTNO COLLATE NOCASE"));
  EXPECT_NE(value_of(database, "SELECT PARTNO FROM PARTS WHERE PARTNO GLOB '*[^ -~]*'"), "no row");
}

TEST_F(Company, HasOneStocktakingThatWaitsForApproval) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*)||' '||CHECKDT||' '||DEPTNO||' '||STATUSSN FROM STKCHECKHD"),
            "1 2024-02-29 00:00:00 20 0");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCHECKDT WHERE QTY IS NULL"), "1");
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCHECKDT WHERE UPRICE IS NULL"), "1");
  // Held against the movement up to the check date, as the approval does while nothing is closed.
  const std::string movement =
      "(SELECT QTY AS COUNTED,MAX(0,IFNULL((SELECT SUM(QTY) FROM STKTRANDT D JOIN STKTRANHD H ON "
      "D.TRANNO=H.TRANNO "
      "WHERE D.PARTNO=C.PARTNO AND DEPTNOFR='20' AND TRANDT<='2024-02-29 00:00:00'),0))+MAX(0,IFNULL((SELECT "
      "SUM(QTY) "
      "FROM STKTRANDT D JOIN STKTRANHD H ON D.TRANNO=H.TRANNO WHERE D.PARTNO=C.PARTNO AND DEPTNOTO='20' AND "
      "TRANTYPE='STK024MRPL' AND TRANDT<='2024-02-29 00:00:00'),0)) AS BOOK FROM STKCHECKDT C)";
  EXPECT_EQ(value_of(database, "SELECT MAX(ABS(COUNTED-BOOK))<=7 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED=BOOK)>0 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED<BOOK)>0 FROM " + movement), "1");
  EXPECT_EQ(value_of(database, "SELECT SUM(COUNTED>BOOK)>0 FROM " + movement), "1");
}

TEST_F(Company, IsNotYetClosed) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM STKCLOSEHD"), "0");
  EXPECT_EQ(
      value_of(database, "SELECT COUNT(*) FROM STKTRANHD WHERE TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')"),
      "0");
}

TEST_F(Company, HasUsersWithDifferentRights) {
  EXPECT_EQ(value_of(database,
                     "SELECT GROUP_CONCAT(USERID||' '||FUNCCODE||' '||CANINSERT||CANUPDATE||CANDELETE||"
                     "CANAPPROVED||CANUNAPPROVED||CANCANCEL||CANFINISHED||OWNER) FROM (SELECT * FROM "
                     "USERRIGHTS ORDER BY USERID)"),
            "ADMIN * 11111111,AUDITOR * 00000000,CLERK * 11000000,MANAGER * 11111110,OWNER * 00000001");
}

TEST_F(Company, HasMasterDataOfTheComponent) {
  for (const char* table : {"PARTCOSTSET", "REVADDR", "STKCONTROLLER"}) {
    EXPECT_NE(value_of(database, std::string("SELECT COUNT(*) FROM ") + table), "0") << table;
  }
}

}  // namespace
