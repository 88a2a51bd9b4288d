#include <gtest/gtest.h>

#include "tests/behaviour/close/closing_company.h"
#include "tests/behaviour/stockcheck/counting_company.h"

// What closes and approvals do with an apostrophe in the name of the user or in a part number that is stored:
// both stand in their statements as they are.
namespace tallyra::behaviour {
namespace {

using stage::done;
using stage::Outcome;

class ApostropheInAClose : public testing::TestWithParam<const char*> {
 protected:
  ApostropheInAClose() { company.grant("*", "CANINSERT"); }

  void rename_part(const std::string& from, const std::string& to) const {
    company.run({"UPDATE STKTRANDT SET PARTNO='" + to + "' WHERE PARTNO='" + from + "'",
                 "UPDATE PARTS SET PARTNO='" + to + "' WHERE PARTNO='" + from + "'"});
  }
  void expect_failed_without_trace(const char* user) const {
    const std::string before = company.everything();
    const Outcome outcome = company.close("2024/01/31", user);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.number, stage::narrowed(-2147217900.0)) << outcome;
    EXPECT_EQ(company.everything(), before);
  }

  const ClosingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, ApostropheInAClose, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(ApostropheInAClose, OfTheUserEndsItInAnErrorAndNothingIsLost) {
  expect_failed_without_trace("O'NEIL");
  EXPECT_EQ(company.close("2024/01/31", "ONEIL"), done);
}

TEST_P(ApostropheInAClose, OfTheUserCanBringAQuery) {
  EXPECT_EQ(company.close("2024/01/31", "x'||(Select Max(PARTNM) From PARTS)||'"), done);
  EXPECT_EQ(company.rows("SELECT DISTINCT ADDBY FROM STKTRANHD WHERE TRANTYPE='STK027CLOSE'"), "x螺丝\n");
}

TEST_P(ApostropheInAClose, OfAStoredPartEndsItInAnErrorAndNothingIsLost) {
  rename_part("Bolt1", "Bolt''1");
  expect_failed_without_trace("ADMIN");
  rename_part("Bolt''1", "Bolt1");
  EXPECT_EQ(company.close("2024/01/31"), done);
}

TEST_P(ApostropheInAClose, OfAStoredPartCanBringALineOfItsOwn) {
  rename_part("Bolt1", "anything'',999, 0 ,'''',Null,'''',Null)--");
  EXPECT_EQ(company.close("2024/01/31"), done);
  EXPECT_EQ(company.rows("SELECT L.QTY FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO "
                         "WHERE H.TRANTYPE='STK027CLOSE' AND L.PARTNO='anything' AND H.DEPTNOFR='10 '"),
            "999\n")
      << "8 are there";
}

class ApostropheInAnApproval : public testing::TestWithParam<const char*> {
 protected:
  const CountingCompany company{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Kinds, ApostropheInAnApproval, testing::Values("MSACCESS", "MSSQLSERVER"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(ApostropheInAnApproval, OfAStoredPartEndsItInAnErrorAndNothingIsLost) {
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1", "5");
  company.counted("S1", "P''2", "6");
  const std::string before = company.everything();
  const Outcome outcome = company.approve("S1");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.number, stage::narrowed(-2147217900.0)) << outcome;
  EXPECT_EQ(company.everything(), before);
  company.run({"UPDATE STKCHECKDT SET PARTNO='P2' WHERE PARTNO='P''2'"});
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.posted_lines(), "P1|5|1.5\nP2|6|1.5\n");
}

TEST_P(ApostropheInAnApproval, OfAStoredPartCanCountWhatBelongsToOthers) {
  company.moves("T1", "STK020MISS", "2024-03-10", "20", "", "P2", "4");
  company.check("S1", "2024-03-31", "10");
  company.counted("S1", "P1'' Or ''1''=''1", "5");
  expect_posted(company.approve("S1"));
  EXPECT_EQ(company.rows("SELECT QTY FROM STKTRANDT WHERE TRANNO<>'T1'"), "-3\n")
      << "5 counted, 4 of another part and department twice";
}

}  // namespace
}  // namespace tallyra::behaviour
