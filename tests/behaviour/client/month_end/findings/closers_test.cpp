#include "client/database/own_tables.h"
#include "client/platform/process.h"
#include "tests/behaviour/client/month_end/checked_company.h"

// Each finding on a company that has exactly that fault: it is found, and nothing else is.
namespace tallyra::client {
namespace {

TEST_F(CheckedCompany, HasNobodyElseAtWork) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  make_own_tables(reader);
  sql(
      {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','elsewhere',17,'2024/03/05 09:00:00')"});
  EXPECT_EQ(found(), "another-closer:1");
}

TEST_F(CheckedCompany, TellsOfAnUnfinishedClose) {
  sql(
      {"INSERT INTO STKTRANHD(TRANNO,TRANTYPE,TRANDT,DEPTNOFR,STATUSSN) "
       "VALUES('027CLOSE00000009','STK027CLOSE','2024-02-01 00:00:00','10 ',0)"});
  EXPECT_EQ(found(), "unfinished-close:1");
}

TEST_F(CheckedCompany, TellsOfAClosingProcessThatHasEnded) {
  const Reader reader(company_.connection_string(), "MSACCESS");
  make_own_tables(reader);
  sql(
      {"INSERT INTO TALLYRALOCK(LOCKKEY,WORKTEXT,OWNERID,HOSTNAME,PROCESSID,PROCESSSTART,SINCE) "
       "VALUES('CLOSE','close 2024/01/31','ANNA','" +
       host_name() + "',999999999,'1','2024/03/05 09:00:00')"});
  EXPECT_EQ(found(), "unfinished-close:1");
}

}  // namespace
}  // namespace tallyra::client
