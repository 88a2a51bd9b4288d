#include <gtest/gtest.h>

#include "tests/transcript/close/stock_close_script.h"

// The close document of one department.
namespace tallyra {
namespace {

using automation::ref;
using automation::Value;
using stage::done;

const std::string head =
    "C5.Execute Insert Into STKTRANDT (TRANNO,REFERENCE,SN,PARTNO,QTY,UPRICE,ADDBY,ADDDT,EDITBY,EDITDT) "
    "Values('K001','',0,";
const std::string written = ",'TESTER',#2024/04/05#,'TESTER',#2024/04/05#) | -1\n";

// The department of a company whose close has fixed the period.
class DepartmentClose : public testing::Test {
 protected:
  DepartmentClose() {
    EXPECT_EQ(company.close(), done);
    company.stage.clear();
  }
  stage::Outcome close(const char* number) {
    Value id = "K001", date = "#2024/03/31#", department = number;
    return stage::outcome_of(company.client,
                             company.client.call("STKMonthCloseDept", ref(id), ref(date), ref(department)));
  }

  MonthCloseStage company;
};

TEST_F(DepartmentClose, MergesWhatWentOutAndWhatCameInByTransferInTheOrderOfParts) {
  EXPECT_EQ(close("10"), done);
  const std::string& calls = company.stage.transcript();
  std::string lines;
  for (const char* line :
       {"'A',1,0", "'AB',4,0", "'B',8, 0 ", "'C',7,0", "'D',-2.5, 0 ", "'E',0, 0 ", "'F',0.1,0"})
    lines += head + line + written;
  EXPECT_TRUE(calls.ends_with("'10 ','','TESTER',#2024/04/05#,'TESTER',#2024/04/05#) | -1\n" + lines +
                              "C5.CommitTrans\nR10.Close\nR11.Close\n"))
      << calls;
}

}  // namespace
}  // namespace tallyra
