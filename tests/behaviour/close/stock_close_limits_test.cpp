#include <gtest/gtest.h>

#include "tests/behaviour/close/closing_company.h"

// What a close does not put up with, and what has no influence on it.
namespace tallyra::behaviour {
namespace {

using stage::done;

class CloseLimits : public testing::TestWithParam<const char*> {
 protected:
  ClosingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, CloseLimits, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& param) { return std::string(param.param); });

// One part in one department is enough. Out of a department that is the error of Null itself; what only came
// in has a gap in its statement, which the database refuses.
TEST_P(CloseLimits, QuantitiesThatAreAllNullStopTheWholeClose) {
  const struct {
    const char* document;
    double number;
  } rows[] = {{"'STK010POREV','30',''", 94}, {"'STK024MRPL','','30'", -2147217900}};
  for (const auto& [document, number] : rows) {
    SCOPED_TRACE(document);
    company.run(
        {"INSERT INTO STKTRANHD(TRANNO,STATUSSN,TRANDT,TRANTYPE,DEPTNOFR,DEPTNOTO) VALUES('N1',1,"
         "'2024-01-15 00:00:00'," +
             std::string(document) + ")",
         "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('N1',1,'frame',NULL)"});
    const std::string before = company.everything();
    const stage::Outcome outcome = company.close("2024/01/31");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(number)) << outcome;
    EXPECT_EQ(company.everything(), before);
    company.run({"INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('N1',2,'frame',0)"});
    EXPECT_EQ(company.close("2024/01/31"), done) << "beside a quantity a Null counts as nothing";
    EXPECT_EQ(company.remove("2024/01/31"), done);
    company.run({"DELETE FROM STKTRANHD WHERE TRANNO='N1'", "DELETE FROM STKTRANDT WHERE TRANNO='N1'"});
  }
}

TEST_P(CloseLimits, ATransferThatNamesBothDepartmentsAddsToBoth) {
  company.run(
      {"INSERT INTO STKTRANHD(TRANNO,STATUSSN,TRANDT,TRANTYPE,DEPTNOFR,DEPTNOTO) VALUES('T9',1,"
       "'2024-01-15 00:00:00','STK024MRPL','30','20')",
       "INSERT INTO STKTRANDT(TRANNO,SN,PARTNO,QTY) VALUES('T9',1,'BOLT-1',5)"});
  ASSERT_EQ(company.close("2024/01/31"), done);
  const std::string lines = company.department_lines("2024-02-01");
  EXPECT_NE(lines.find("20 |BOLT-1|5|0\n"), std::string::npos) << lines;
  EXPECT_NE(lines.find("30 |BOLT-1|5|0\n"), std::string::npos) << lines;
}

TEST_P(CloseLimits, CostingSettingsHaveNoInfluence) {
  ASSERT_EQ(company.close("2024/01/31"), done);
  const std::string lines = company.company_lines("2024-02-01");
  ASSERT_EQ(company.remove("2024/01/31"), done);
  for (const char* method : {"1", "2", "3"}) {
    company.run(
        {"DELETE FROM PARTCOSTSET", "INSERT INTO PARTCOSTSET(MTYPESN,COSTMETHOD,OVERHEADRATE) VALUES(1," +
                                        std::string(method) + ",0.5),(2," + method + ",0.25)"});
    ASSERT_EQ(company.close("2024/01/31"), done);
    EXPECT_EQ(company.company_lines("2024-02-01"), lines);
    ASSERT_EQ(company.remove("2024/01/31"), done);
  }
  company.run({"UPDATE PARTS SET PRICETYPESN=1 WHERE PARTNO='Bolt1'"});
  ASSERT_EQ(company.close("2024/01/31"), done);
  EXPECT_NE(company.company_lines("2024-02-01"), lines) << "the price type of a part has";
}

TEST_P(CloseLimits, ATimeOfDayOnTheCloseDateLiesInTheNextPeriod) {
  company.run({"UPDATE STKTRANHD SET TRANDT='2024-01-31 08:00:00' WHERE TRANNO='I1'"});
  ASSERT_EQ(company.close("2024/01/31"), done);
  EXPECT_NE(company.department_lines("2024-02-01").find("10 |bolt-1|15|0\n"), std::string::npos)
      << "15 received, the issue of 6 does not count yet\n"
      << company.department_lines("2024-02-01");
  ASSERT_EQ(company.approve("2024/01/31"), done);
  ASSERT_EQ(company.close("2024/02/29"), done);
  EXPECT_NE(company.department_lines("2024-03-01").find("10 |bolt-1|10|0\n"), std::string::npos)
      << company.department_lines("2024-03-01");
}

}  // namespace
}  // namespace tallyra::behaviour
