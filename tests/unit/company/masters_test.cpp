#include "company/masters.h"

#include "tests/unit/company/generated_company.h"

namespace {

using namespace tallyra::tests::generated_company;

TEST_F(GeneratedCompany, MastersHaveBillsOfKnownParts) {
  expect_none({
      {"a bill of materials of no part",
       "SELECT ASSMNO FROM ASSMBOM WHERE ASSMNO NOT IN (SELECT PARTNO FROM PARTS) OR PARTNO NOT IN (SELECT "
       "PARTNO "
       "FROM PARTS)"},
  });
}

TEST_F(GeneratedCompany, MastersHaveNoApostropheInAKey) {
  expect_none({
      {"an apostrophe in a key",
       "SELECT PARTNO FROM PARTS WHERE INSTR(PARTNO||PARTNM,'''')>0 UNION SELECT DEPTNO FROM DEPARTS WHERE "
       "INSTR(DEPTNO||DEPTNM,'''')>0"},
  });
}

TEST_F(GeneratedCompany, HasEveryPairOfMaterialAndPriceType) {
  EXPECT_EQ(value_of(database, "SELECT COUNT(*) FROM (SELECT DISTINCT MTYPESN,PRICETYPESN FROM PARTS)"), "9");
}

TEST_F(GeneratedCompany, HasBillsOfFiveLevelsWithoutCycle) {
  EXPECT_EQ(value_of(database,
                     "WITH RECURSIVE BILL(PART,LEVEL) AS (SELECT ASSMNO,0 FROM ASSMBOM UNION SELECT "
                     "A.PARTNO,LEVEL+1 FROM ASSMBOM A JOIN BILL ON A.ASSMNO=PART WHERE LEVEL<50) SELECT "
                     "MAX(LEVEL) FROM BILL"),
            "5");
}

TEST_F(GeneratedCompany, HasPartNumbersThatTellByteOrderFromAnyOther) {
  EXPECT_NE(database.query("SELECT PARTNO FROM PARTS ORDER BY PARTNO"),
            database.query("SELECT PARTNO FROM PARTS ORDER BY PARTNO COLLATE NOCASE"));
  EXPECT_NE(value_of(database, "SELECT PARTNO FROM PARTS WHERE PARTNO GLOB '*[^ -~]*'"), "no row");
}

}  // namespace
