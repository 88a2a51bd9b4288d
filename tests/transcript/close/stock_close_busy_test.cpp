#include <gtest/gtest.h>

#include "tests/support/queries.h"
#include "tests/transcript/close/stock_close_script.h"

// A month close whose client uses the same object from its message loop: the run goes on with what the
// object's fields then hold. Its lines are seven of the first department, two of the second, five of the
// company.
namespace tallyra {
namespace {

using automation::ref;
using automation::Value;
using stage::done;
using stage::refused;

class BusyClose : public testing::Test {
 protected:
  // Closes March and does this when the line with that number, from 1, is written.
  stage::Outcome close_and(int line, const std::function<void()>& what) {
    int written = 0;
    const automation::ScopedYield yield([&] {
      if (++written == line) what();
    });
    return company.close();
  }
  // A close of April begins with the first day of all, and leaves that to what is left of March.
  void know_april() {
    company.knows_period("2000/01/01", "2024/04/30", "2024/05/01");
    company.knows_period("2000/01/01", "2024/03/31", "2024/04/01");
  }
  int times(const std::string& text) const {
    const std::string& calls = company.stage.transcript();
    int count = 0;
    for (auto at = calls.find(text); at != std::string::npos; at = calls.find(text, at + 1)) ++count;
    return count;
  }
  Value read(const char* date) {
    company.stage.finds_nothing(
        std::string("Select STKCLOSEHD.* From STKCLOSEHD Where STKCLOSEHD.CLOSEDT=#") + date + "#");
    stage::Fields fields;
    return company.client.call("Read", date, ref(fields.names), ref(fields.values));
  }

  MonthCloseStage company;
  static constexpr const char* cleanup = "Delete * From STKTRANHD Where STKTRANHD.TRANTYPE='STKCLOSEALL'";
};

TEST_F(BusyClose, LinesFromThereOnAreTheNewUsersOwn) {
  EXPECT_EQ(close_and(3, [&] { company.client.put("UserID", "NIGHT"); }), done);
  EXPECT_EQ(times("Insert Into STKTRANDT"), 9);
  EXPECT_EQ(times("'TESTER',#2024/04/05#,'TESTER',#2024/04/05#) | -1"), 1 + 3) << "a header and its lines";
  EXPECT_EQ(times("'NIGHT',#2024/04/05#,'NIGHT',#2024/04/05#) | -1"), 4 + 1 + 2 + 1 + 5);
  EXPECT_EQ(times("rights.UserID"), 1) << "the collaborators hear of nothing";
}

TEST_F(BusyClose, ConnectionsFromThereOnAreToTheNewDatabase) {
  EXPECT_EQ(close_and(3, [&] { company.client.put("ConnectionString", "DSN=y"); }), done);
  EXPECT_EQ(times("C1.Open 'DSN=x'") + times("C2.Open 'DSN=x'"), 2);
  EXPECT_EQ(times("C3.Open 'DSN=y'") + times("C4.Open 'DSN=y'"), 2);
  EXPECT_EQ(times("C1.Execute <GetInsertSQL STKCLOSEHD>"), 1) << "the run's own connection is what it was";
}

TEST_F(BusyClose, TheKindOfDatabaseIsThatOfTheBeginning) {
  EXPECT_EQ(close_and(3, [&] { company.client.put("SystemDatabase", "MSSQLSERVER"); }), done);
  EXPECT_EQ(times("'2024/04/01'") + times("'2024/03/31'"), 0);
}

// The run asks ErrNumber after each step, and cannot tell whose error it is.
TEST_F(BusyClose, ACallThatLeavesAnErrorEndsTheRunAtItsNextStep) {
  EXPECT_EQ(close_and(3, [&] { EXPECT_EQ(read("2024/05/31"), Value(100.0F)); }),
            (stage::Outcome{0, 10000003, "text of Msg10000003"}));
  EXPECT_EQ(times("Insert Into STKTRANDT"), 7) << "the department is written to its end";
  EXPECT_EQ(times(cleanup), 2) << "and removed again";
  EXPECT_EQ(times("C1.Close"), 1);
}

TEST_F(BusyClose, ACallThatSucceedsAfterItLetsTheRunGoOn) {
  EXPECT_EQ(close_and(3,
                      [&] {
                        EXPECT_EQ(read("2024/05/31"), Value(100.0F));
                        EXPECT_EQ(company.client.get("ErrNumber"), Value(10000003.0F));
                        Value id = "K9", date = "#2024/05/31#", department = "30";
                        stage::no_movements(company.stage, "30", "#2024/02/29#", "#2024/05/31#");
                        EXPECT_EQ(
                            company.client.call("STKMonthCloseDept", ref(id), ref(date), ref(department)),
                            Value(100.0F));
                      }),
            done);
}

TEST_F(BusyClose, ARefusalIsTheClientsAndTheRunGoesOnWhenItIsCleared) {
  const auto remove_without_right = [&] {
    return stage::outcome_of(company.client, company.client.call("Delete", "2024/03/31"));
  };
  EXPECT_EQ(close_and(9, [&] { EXPECT_EQ(remove_without_right(), refused(10000016)); }), refused(10000016))
      << "the run ends with the other call's verdict";
  EXPECT_EQ(times(cleanup), 2);
}

TEST_F(BusyClose, ACloseWithinTheCloseGivesItItsOwnPeriod) {
  know_april();
  EXPECT_EQ(close_and(3, [&] { EXPECT_EQ(company.close("2024/04/30"), done); }), done);
  // The other one is whole: two departments, the company, its record.
  EXPECT_EQ(times("TRANDT<=#2024/04/30#"), 4);
  EXPECT_EQ(times("Select top 1 * From STKCLOSEHD WHERE CLOSEDT=#2024/04/30#"), 2);
  // What is left of the first one reads the period that the other one has fixed, up to its own close date.
  EXPECT_EQ(times("TRANDT>#2024/02/29# AND STKTRANHD.TRANDT<=#2024/03/31#"), 2);
  EXPECT_EQ(times("TRANDT>#2000/01/01# AND STKTRANHD.TRANDT<=#2024/03/31#"), 2);
  EXPECT_EQ(times("Where STKTRANHD.TRANDT=#2024/05/01# AND STKTRANHD.TRANTYPE='STK027CLOSE'"), 2);
  EXPECT_EQ(times("Where STKTRANHD.TRANDT=#2024/04/01# AND STKTRANHD.TRANTYPE='STK027CLOSE'"), 0);
  EXPECT_EQ(times("C1.Execute <GetInsertSQL STKCLOSEHD>"), 1);
}

TEST_F(BusyClose, CostsAreAskedForThePeriodThatHoldsThen) {
  know_april();
  // The first cost is that of the first line; the period is another one behind it.
  EXPECT_EQ(close_and(10, [&] { EXPECT_EQ(company.close("2024/04/30"), done); }), done);
  EXPECT_EQ(times("'#2024/03/31#' '#2024/02/29#'"), 1) << company.stage.transcript();
  EXPECT_EQ(times("'#2024/03/31#' '#2000/01/01#'"), 4);
}

}  // namespace
}  // namespace tallyra
