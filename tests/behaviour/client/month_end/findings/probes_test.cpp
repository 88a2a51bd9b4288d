#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, KnowsThatPartsAreOrderedAsTheComponentOrdersThem) {
  if (!company_.is_sqlite())
    sql({"ALTER TABLE STKTRANDT ALTER COLUMN PARTNO TYPE varchar(40) COLLATE \"und-x-icu\"",
         "ALTER TABLE PARTS ALTER COLUMN PARTNO TYPE varchar(40) COLLATE \"und-x-icu\""});
  else
    sql({"ALTER TABLE STKTRANDT RENAME TO OLDLINES",
         "CREATE TABLE STKTRANDT AS SELECT * FROM OLDLINES WHERE 0", "DROP TABLE STKTRANDT",
         "CREATE TABLE STKTRANDT(TRANNO VARCHAR(20),REFERENCE VARCHAR(20),SN INTEGER,PARTNO VARCHAR(40) "
         "COLLATE NOCASE,"
         "QTY DOUBLE,UPRICE DOUBLE)",
         "INSERT INTO STKTRANDT SELECT TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE FROM OLDLINES WHERE "
         "PARTNO<>'BOLT-1'",
         "DROP TABLE OLDLINES"});
  EXPECT_EQ(found(), "part-order:1");
}

// The server compares columns of different collations not at all, and the other findings are told all the
// same.
TEST_F(CheckedCompany, TellsWhatTheDatabaseRefusesToCompare) {
  if (company_.is_sqlite())
    sql({"ALTER TABLE PARTS RENAME TO OLDPARTS"});
  else
    sql({"ALTER TABLE PARTS ALTER COLUMN PARTNO TYPE varchar(40) COLLATE \"und-x-icu\""});
  EXPECT_EQ(found("2024/01/30"),
            company_.is_sqlite() ? "not-month-end:1 refused-query:3" : "not-month-end:1 refused-query:1");
}

TEST_F(CheckedCompany, KnowsThatBlanksBehindADepartmentDoNotCount) {
  if (!company_.is_sqlite())
    sql({"ALTER TABLE DEPARTS ALTER COLUMN DEPTNO TYPE varchar(20) COLLATE \"C\""});
  else
    sql({"PRAGMA foreign_keys=OFF", "ALTER TABLE DEPARTS RENAME TO OLDDEPARTS",
         "CREATE TABLE DEPARTS(DEPTNO VARCHAR(20) PRIMARY KEY,DEPTNM VARCHAR(60))",
         "INSERT INTO DEPARTS SELECT DEPTNO,DEPTNM FROM OLDDEPARTS", "DROP TABLE OLDDEPARTS"});
  EXPECT_EQ(found(), "trailing-blanks:1");
}

}  // namespace
}  // namespace tallyra::client
